// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "csvtextquestion.h"

#include "logger.h"
#include "models/csvtextloss.h"
#include "models/nvrcsvmodel.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {
bool &cancelled()
{
    static bool value = false;
    return value;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("CsvTextQuestion", text);
}
}

CsvTextQuestion::CsvTextQuestion()
{
    NvrCsvModel::setSaveCheck(&CsvTextQuestion::ask);
}

CsvTextQuestion::~CsvTextQuestion()
{
    NvrCsvModel::setSaveCheck({});
}

bool CsvTextQuestion::askToSave(NvrCsvModel *model)
{
    cancelled() = false;
    return model->askToSave(true) && !cancelled();
}

bool CsvTextQuestion::ask(NvrCsvModel *model)
{
    const CsvTextLoss loss = CsvTextLoss::find(*model);
    if (!loss.isValid())
        return true;
    const QModelIndex record = model->index(loss.row, 0);
    const QString field = model->headerData(loss.column, Qt::Horizontal).toString();
    const QString text = tr("Record %1 (%2 %3) holds %4 in its field \"%5\". The library file cannot keep that "
                            "character: it would read back as something else.")
                             .arg(model->id(record))
                             .arg(model->company(record), model->model(record), loss.characterText(), field);
    QMessageBox box(QMessageBox::Warning, model->objectName(), text, QMessageBox::Save | QMessageBox::Cancel);
    box.setInformativeText(tr("The library files keep plain text: letters A to Z without accents, digits and "
                              "the usual signs, but no double quotes. Save anyway, or cancel and change the "
                              "text?"));
    box.setDefaultButton(QMessageBox::Cancel);
    if (box.exec() == QMessageBox::Save) {
        LOG_WARNING(QStringLiteral("%1 saved although %2").arg(model->objectName(), text));
        return true;
    }
    cancelled() = true;
    return false;
}
