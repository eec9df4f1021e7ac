// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "modeltester.h"

#include <QTest>

namespace {
QtMessageHandler s_previous = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        s_previous(type, context, message);
        return;
    }
    if (message.contains(QLatin1String("flags == Qt::ItemIsDropEnabled || flags == 0")))
        return;
    QTest::qFail(qPrintable(message), context.file ? context.file : __FILE__, context.line);
}
}

ModelTester::ModelTester(QAbstractItemModel *model) : m_previous(qInstallMessageHandler(handleMessage))
{
    s_previous = m_previous;
    m_tester = std::make_unique<QAbstractItemModelTester>(
        model, QAbstractItemModelTester::FailureReportingMode::Warning);
}

ModelTester::~ModelTester()
{
    m_tester.reset();
    qInstallMessageHandler(m_previous);
}
