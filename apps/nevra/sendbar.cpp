// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "sendbar.h"

#include "classes/serialtraffic.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

SendBar::SendBar(QWidget *parent)
    : QWidget(parent), m_line(new QComboBox(this)), m_lineEnding(new QComboBox(this)),
      m_hex(new QCheckBox(tr("He&x"), this)), m_message(new QLabel(this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *row = new QHBoxLayout;
    m_line->setObjectName(QStringLiteral("sendLine"));
    m_line->setEditable(true);
    m_line->setInsertPolicy(QComboBox::NoInsert);
    m_line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_line->lineEdit()->setPlaceholderText(tr("Text to send, or hex bytes such as 02 41 0D"));
    m_lineEnding->setObjectName(QStringLiteral("lineEnding"));
    m_lineEnding->addItems(SerialTraffic::lineEndingNames());
    m_lineEnding->setToolTip(tr("Sent after each text line; hex goes out exactly as typed."));
    m_hex->setObjectName(QStringLiteral("hexSend"));
    auto *sendButton = new QPushButton(tr("&Send"), this);
    sendButton->setObjectName(QStringLiteral("send"));
    auto *fileButton = new QPushButton(tr("Send F&ile..."), this);
    fileButton->setObjectName(QStringLiteral("sendFile"));
    row->addWidget(m_line, 1);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_lineEnding, m_hex, sendButton, fileButton})
        row->addWidget(widget);
    column->addLayout(row);
    m_message->setObjectName(QStringLiteral("sendMessage"));
    m_message->setStyleSheet(QStringLiteral("color: #b00020"));
    column->addWidget(m_message);

    connect(sendButton, &QPushButton::clicked, this, &SendBar::sendRequested);
    // Return reaches the box whether the key went to it or to its line edit first: send once, from there.
    m_line->installEventFilter(this);
    connect(fileButton, &QPushButton::clicked, this, &SendBar::sendFileRequested);
}

SendBar::~SendBar() = default;

QString SendBar::text() const
{
    return m_line->currentText();
}

QByteArray SendBar::bytes(QString *refusal) const
{
    QByteArray bytes;
    if (m_hex->isChecked()) {
        QString error;
        bytes = SerialTraffic::parseHex(text(), &error);
        if (!error.isEmpty()) {
            *refusal = tr("Not sent: %1").arg(error);
            return QByteArray();
        }
    } else {
        bytes = text().toUtf8() + SerialTraffic::lineEnding(SerialTraffic::LineEnding(m_lineEnding->currentIndex()));
    }
    if (bytes.isEmpty())
        *refusal = tr("Nothing to send.");
    return bytes;
}

QStringList SendBar::history() const
{
    QStringList history;
    for (int i = 0; i < m_line->count(); ++i)
        history.append(m_line->itemText(i));
    return history;
}

void SendBar::addToHistory(const QString &text)
{
    const int old = m_line->findText(text);
    if (old >= 0)
        m_line->removeItem(old);
    m_line->insertItem(0, text);
    while (m_line->count() > historySize)
        m_line->removeItem(m_line->count() - 1);
    m_line->setCurrentIndex(-1);
    m_line->clearEditText();
}

void SendBar::setMessage(const QString &text)
{
    m_message->setText(text);
}

void SendBar::restoreSettings(const QSettings &settings)
{
    m_lineEnding->setCurrentIndex(
        qBound(0, settings.value(QStringLiteral("lineEnding"), int(SerialTraffic::CR)).toInt(), 3));
    m_hex->setChecked(settings.value(QStringLiteral("hexSend"), false).toBool());
    m_line->addItems(settings.value(QStringLiteral("history")).toStringList().mid(0, historySize));
    m_line->setCurrentIndex(-1);
}

void SendBar::saveSettings(QSettings &settings) const
{
    settings.setValue(QStringLiteral("lineEnding"), m_lineEnding->currentIndex());
    settings.setValue(QStringLiteral("hexSend"), m_hex->isChecked());
    settings.setValue(QStringLiteral("history"), history());
}

bool SendBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_line && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Q_EMIT sendRequested();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
