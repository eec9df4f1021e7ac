// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_MODELTESTER_H
#define NVR_TEST_MODELTESTER_H

#include <QAbstractItemModelTester>

#include <memory>

/**
 * Qt's model checker for models whose invalid (root) index answers
 * Qt::ItemIsEnabled, as the headsets and legends tables do: the checker
 * counts that as a failure. This one lets exactly that finding pass and
 * fails the current test on every other, as the plain checker does.
 *
 * The checker stops its basic round at a failed check, so a root-flags
 * finding skips the few checks after it in that round (buddy, parent and
 * row count of the root); every other round runs whole.
 */
class ModelTester
{
public:
    explicit ModelTester(QAbstractItemModel *model);
    ~ModelTester();
    ModelTester(const ModelTester &) = delete;
    ModelTester &operator=(const ModelTester &) = delete;

private:
    QtMessageHandler m_previous;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

#endif
