// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_MAINWINDOW_H
#define NEVRA_MAINWINDOW_H

#include <QMainWindow>

#include <functional>

class NvrOptions;
class QLabel;
class QTabWidget;
class TerminalPage;

/**
 * The host's one window: a page per tool in a tab widget, the options
 * dialog in the Tools menu, and a status line showing the configured ports.
 * Geometry and the last page are kept in the application's settings.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(NvrOptions *options, QWidget *parent = nullptr);
    ~MainWindow() override;

    QTabWidget *pages() const { return m_pages; }
    /**
     * Adds a page as a tab; the page's objectName identifies it in tests.
     * askToSave, when given, offers to save the page's unsaved data before
     * the window closes and returns false when the user cancels.
     */
    void addPage(QWidget *page, const QString &title, const std::function<bool()> &askToSave = {});

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void createMenus();
    void updatePortStatus();
    void editOptions();
    void about();

    NvrOptions *m_options;
    QTabWidget *m_pages;
    QLabel *m_portStatus;
    QList<std::function<bool()>> m_savePrompts;
    TerminalPage *m_terminal = nullptr;
};

#endif
