// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtformdialog.h"

#include "logger.h"
#include "models/rt.h"
#include "models/rtstablemodel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {
QLineEdit *makeLineEdit(QWidget *parent, const char *name, const QString &placeholder = QString())
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setPlaceholderText(placeholder);
    return edit;
}

QLabel *makeMessageLabel(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::RichText);
    return label;
}

QString highlighted(const QString &text)
{
    return QStringLiteral("<b><span style='background-color: #FFFFCC'>%1</span></b>").arg(text);
}

// The record's model and row, through a proxy if the form was bound to one.
QPair<const RtsTableModel *, int> sourceRow(const QModelIndex &index)
{
    QModelIndex source = index;
    while (auto *proxy = qobject_cast<const QSortFilterProxyModel *>(source.model()))
        source = proxy->mapToSource(source);
    if (auto *model = qobject_cast<const RtsTableModel *>(source.model()))
        return {model, source.row()};
    return {RtsTableModel::instance(), -1};
}
}

RtFormDialog::RtFormDialog(QWidget *parent)
    : KvBaseFormDialog(parent),
      m_type(new QComboBox(this)),
      m_manufacturer(makeLineEdit(this, "manufacturerEdit", tr("Enter Radio Manufacturer's Name"))),
      m_model(makeLineEdit(this, "modelEdit", tr("Enter Radio Model"))),
      m_includeInRxList(new QCheckBox(this)),
      m_rxLevel(makeLineEdit(this, "rxLevelEdit", tr("Enter a value between 1.0 and 10.0"))),
      m_rxDescription(makeLineEdit(this, "rxDescriptionEdit")),
      m_txLevel(makeLineEdit(this, "txLevelEdit", tr("Enter a value between 0.1 and 1.0"))),
      m_txDescription(makeLineEdit(this, "txDescriptionEdit")),
      m_rxMessage(makeMessageLabel(this, "rxMessageLabel")),
      m_txMessage(makeMessageLabel(this, "txMessageLabel")),
      m_duplicate(makeMessageLabel(this, "duplicateLabel"))
{
    setObjectName(QStringLiteral("RtFormDialog"));
    setWindowTitle(tr("Radio"));
    setMinimumWidth(460);
    m_type->setObjectName(QStringLiteral("typeComboBox"));
    m_type->addItems(Rt::typeNames());
    m_includeInRxList->setObjectName(QStringLiteral("includeInRxListCheckBox"));
    m_duplicate->setText(highlighted(tr("Duplicate Radio!")));
    m_duplicate->hide();

    auto *form = new QFormLayout;
    form->addRow(tr("Type:"), m_type);
    form->addRow(tr("Manufacturer:"), m_manufacturer);
    form->addRow(tr("Model:"), m_model);
    form->addRow(tr("Include In Receivers List:"), m_includeInRxList);
    form->addRow(tr("Rx Level:"), m_rxLevel);
    form->addRow(QString(), m_rxMessage);
    form->addRow(tr("Rx Level Description:"), m_rxDescription);
    form->addRow(tr("Tx Level:"), m_txLevel);
    form->addRow(QString(), m_txMessage);
    form->addRow(tr("Tx Level Description:"), m_txDescription);
    form->addRow(m_duplicate);
    mainLayout()->insertLayout(0, form);

    addMapping(m_manufacturer, RtsTableModel::ManufacturerColumn);
    addMapping(m_model, RtsTableModel::ModelColumn);
    addMapping(m_includeInRxList, RtsTableModel::IncludeInRxListColumn);
    addMapping(m_rxLevel, RtsTableModel::RxLevelColumn);
    addMapping(m_rxDescription, RtsTableModel::RxDescriptionColumn);
    addMapping(m_txLevel, RtsTableModel::TxLevelColumn);
    addMapping(m_txDescription, RtsTableModel::TxDescriptionColumn);
    // Last: writing a new type makes the model refill the fields it affects, which must be written by then.
    addMapping(m_type, RtsTableModel::TypeColumn, "currentIndex");
}

RtFormDialog::~RtFormDialog() = default;

bool RtFormDialog::isValid() const
{
    bool valid = true;

    const QString rxText = m_rxLevel->text();
    if (rxText.isEmpty()) {
        m_rxMessage->clear();
        valid = false;
    } else {
        bool isNumber = false;
        const double level = rxText.toDouble(&isNumber);
        if (!isNumber) {
            m_rxMessage->setText(highlighted(tr("Invalid character entered; use 0-9 and . only")));
            valid = false;
        } else if (level < 1.0 || level > 10.0) {
            m_rxMessage->setText(highlighted(tr("The Level must be between 1.00 and 10.0")));
            valid = false;
        } else {
            m_rxMessage->clear();
        }
    }

    const QString txText = m_txLevel->text();
    if (txText.isEmpty()) {
        // Clears the receive message, not the transmit one: long-standing behaviour, kept.
        m_rxMessage->clear();
        valid = false;
    } else {
        bool isNumber = false;
        const double level = txText.toDouble(&isNumber);
        if (!isNumber) {
            m_txMessage->setText(highlighted(tr("Invalid character entered; use 0-9 and . only")));
            valid = false;
        } else if (level < 0.01 || level > 1.0) {
            // Accepts down to 0.01 while the text says 0.1: some radios need 0.05.
            m_txMessage->setText(highlighted(tr("The Level must be between 0.1 and 1.0")));
            valid = false;
        } else {
            m_txMessage->clear();
        }
    }

    if (m_manufacturer->text().isEmpty())
        valid = false;

    const auto record = sourceRow(modelIndex());
    const QModelIndex found = record.first->locateRt(m_manufacturer->text(), m_model->text());
    if (found.isValid() && found.row() != record.second) {
        m_duplicate->show();
        valid = false;
    } else {
        m_duplicate->hide();
    }

    LOG_TRACE(QStringLiteral("RtFormDialog::isValid(): %1")
                  .arg(valid ? QStringLiteral("true") : QStringLiteral("false")));
    return valid;
}

void RtFormDialog::setModelIndex(const QModelIndex &index, KvCore::EditTypes editType)
{
    disconnect(m_modelConnection);
    m_row = index.isValid() ? index.row() : -1;
    KvBaseFormDialog::setModelIndex(index, editType);
    if (index.isValid()) {
        m_modelConnection = connect(index.model(), &QAbstractItemModel::dataChanged, this,
                                    &RtFormDialog::updateEditable);
    }
    updateEditable();
}

int RtFormDialog::row() const
{
    return m_row;
}

void RtFormDialog::connectSignals()
{
    for (QLineEdit *edit : {m_manufacturer, m_model, m_rxLevel, m_rxDescription, m_txLevel, m_txDescription})
        connect(edit, &QLineEdit::textChanged, this, &RtFormDialog::onDataChanged);
    connect(m_type, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RtFormDialog::commitNow);
    connect(m_includeInRxList, &QCheckBox::toggled, this, &RtFormDialog::commitNow);
}

void RtFormDialog::commitNow()
{
    // Writing the record makes the model signal, which refills the fields and may toggle the box again.
    if (m_committing)
        return;
    m_committing = true;
    commitData();
    m_committing = false;
    onDataChanged();
}

void RtFormDialog::updateEditable()
{
    const QModelIndex index = modelIndex();
    if (!index.isValid())
        return;
    const QAbstractItemModel *model = index.model();
    auto editable = [&](int column) {
        return (model->flags(model->index(index.row(), column, index.parent())) & Qt::ItemIsEditable) != 0;
    };
    m_type->setEnabled(editable(RtsTableModel::TypeColumn));
    m_includeInRxList->setEnabled(editable(RtsTableModel::IncludeInRxListColumn));
    m_manufacturer->setReadOnly(!editable(RtsTableModel::ManufacturerColumn));
    m_model->setReadOnly(!editable(RtsTableModel::ModelColumn));
    m_rxLevel->setReadOnly(!editable(RtsTableModel::RxLevelColumn));
    m_rxDescription->setReadOnly(!editable(RtsTableModel::RxDescriptionColumn));
    m_txLevel->setReadOnly(!editable(RtsTableModel::TxLevelColumn));
    m_txDescription->setReadOnly(!editable(RtsTableModel::TxDescriptionColumn));
}
