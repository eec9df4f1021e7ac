// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_OPTIONSPAGE_H
#define NEVRA_OPTIONSPAGE_H

#include <QList>
#include <QWidget>

#include <functional>

class NvrOptions;
class QFormLayout;
class QLabel;

/**
 * The application options in force, read-only, as one long form that
 * scrolls. The port rows follow the options' change signals; the rest is
 * fixed once the host has started.
 */
class OptionsPage : public QWidget
{
    Q_OBJECT
public:
    explicit OptionsPage(NvrOptions *options, QWidget *parent = nullptr);
    ~OptionsPage() override;

    /// Reads every value again from the options.
    void refresh();

private:
    struct Row
    {
        QLabel *value;
        std::function<QString()> text;
    };
    void addRow(QFormLayout *form, const QString &title, const QString &name, std::function<QString()> text);

    NvrOptions *m_options;
    QList<Row> m_rows;
};

#endif
