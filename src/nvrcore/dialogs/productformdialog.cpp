// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productformdialog.h"

#include "models/productsmodel.h"

#include <QAbstractProxyModel>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {
// "{0,1}" and not "{,1}": the regular expression engine reads the latter as plain text.
const QString oneLetter = QStringLiteral("[A-Z]{0,1}");
const QString oneDigit = QStringLiteral("[1-9]{0,1}");

QLineEdit *makeLineEdit(QWidget *parent, const char *name, const QString &placeholder, const QString &pattern = {})
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setPlaceholderText(placeholder);
    if (!pattern.isEmpty())
        edit->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), edit));
    return edit;
}
}

ProductFormDialog::ProductFormDialog(QWidget *parent)
    : KvBaseFormDialog(parent),
      m_product(makeLineEdit(this, "productEdit", tr("Enter KVL Product Number"))),
      // The hints have always lacked their closing parenthesis.
      m_startRev(makeLineEdit(this, "startRevEdit", tr("Enter Starting Build Configuration Rev (E.g. A or B"),
                              oneLetter)),
      m_endRev(makeLineEdit(this, "endRevEdit", tr("Enter Ending Build Configuration Rev (E.g. A or B"),
                            oneLetter)),
      m_hardwareConfiguration(makeLineEdit(this, "hardwareConfigurationEdit",
                                           tr("Enter Hardware Configuration (E.g. 1 or 2)"), oneDigit)),
      m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("ProductFormDialog"));
    setWindowTitle(tr("Product Configuration"));
    setMinimumWidth(520);
    m_message->setObjectName(QStringLiteral("messageLabel"));
    m_message->setWordWrap(true);
    m_message->hide();

    auto *form = new QFormLayout;
    form->addRow(tr("Product:"), m_product);
    form->addRow(tr("Starting Build Configuration Rev:"), m_startRev);
    form->addRow(tr("Ending Build Configuration Rev:"), m_endRev);
    form->addRow(tr("Hardware Configuration:"), m_hardwareConfiguration);
    form->addRow(m_message);
    mainLayout()->insertLayout(0, form);

    addMapping(m_product, ProductsModel::ProductNumber);
    addMapping(m_startRev, ProductsModel::StartRev);
    addMapping(m_endRev, ProductsModel::EndRev);
    addMapping(m_hardwareConfiguration, ProductsModel::HardwareConfiguration);
}

ProductFormDialog::~ProductFormDialog() = default;

bool ProductFormDialog::isValid() const
{
    const QString product = m_product->text();
    const QString start = m_startRev->text();
    const QString end = m_endRev->text();
    QString message;
    bool valid = !product.isEmpty() && !start.isEmpty() && !end.isEmpty() && !m_hardwareConfiguration->text().isEmpty();
    if (valid && end < start) {
        message = tr("The ending revision comes before the starting revision.");
        valid = false;
    }

    QModelIndex source = modelIndex();
    while (auto *proxy = qobject_cast<const QAbstractProxyModel *>(source.model()))
        source = proxy->mapToSource(source);
    const auto *model = qobject_cast<const ProductsModel *>(source.model());
    if (valid && model) {
        const QList<int> rows = model->findRows(ProductsModel::ProductNumber, product);
        for (int row : rows) {
            if (row != source.row()
                && ProductsModel::rangesOverlap(start, end,
                                                model->index(row, ProductsModel::StartRev).data(Qt::EditRole).toString(),
                                                model->index(row, ProductsModel::EndRev).data(Qt::EditRole).toString())) {
                message = tr("These revisions overlap another configuration of this product.");
                valid = false;
                break;
            }
        }
    }
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
    return valid;
}

void ProductFormDialog::connectSignals()
{
    for (QLineEdit *edit : {m_product, m_startRev, m_endRev, m_hardwareConfiguration})
        connect(edit, &QLineEdit::textChanged, this, &ProductFormDialog::onDataChanged);
}
