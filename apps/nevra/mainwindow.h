// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_MAINWINDOW_H
#define NEVRA_MAINWINDOW_H

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <memory>

class CsvTextQuestion;
class NvrOptions;
class QLabel;
class QMenu;
class QListWidget;
class QStackedWidget;
class TerminalPage;

/**
 * The host's one window: a page per tool, chosen from a list at the side
 * in which section headings group the pages; the options dialog in the
 * Tools menu, and a status line showing the configured ports. Geometry and
 * the last page are kept in the application's settings.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(NvrOptions *options, QWidget *parent = nullptr);
    ~MainWindow() override;

    QStackedWidget *pages() const { return m_pages; }
    QListWidget *pageList() const { return m_pageList; }
    /// The title under which the page at index of pages() is listed.
    QString pageTitle(int index) const;
    /// The index in pages() of the page listed under title; -1 when there is none.
    int pageIndex(const QString &title) const;
    /**
     * Adds a page to the list under the last section heading; the page's
     * objectName identifies it in tests. askToSave, when given, offers to
     * save the page's unsaved data before the window closes and returns
     * false when the user cancels.
     */
    void addPage(QWidget *page, const QString &title, const std::function<bool()> &askToSave = {});
    /**
     * Adds a page that make() builds when the page is first shown; until
     * then an empty placeholder holds its place in pages(). askToSave is
     * asked at close whether or not the page was built, since a library
     * can change without its page.
     */
    void addPage(const std::function<QWidget *()> &make, const QString &title,
                 const std::function<bool()> &askToSave = {});
    /// Adds a heading to the list; it cannot be chosen.
    void addSection(const QString &title);
    void showPage(int index);
    /// The terminal page, built now if it was not yet.
    TerminalPage *terminal();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void createMenus();
    /// Shows the next page in the list, or the previous one for a negative step, wrapping around.
    void stepPage(int step);
    int rowOfPage(int index) const;
    /// Builds the page at index if it still is a placeholder.
    void makePage(int index);
    TerminalPage *createTerminalPage();
    void updatePortStatus();
    void editOptions();
    void about();

    NvrOptions *m_options;
    QListWidget *m_pageList;
    QStackedWidget *m_pages;
    QLabel *m_portStatus;
    QList<std::function<bool()>> m_savePrompts;
    /// The builders of pages not yet shown, by their placeholder.
    QHash<QWidget *, std::function<QWidget *()>> m_pageMakers;
    /// Asks before a CSV library is saved with text its file cannot keep.
    std::unique_ptr<CsvTextQuestion> m_csvTextQuestion;
    TerminalPage *m_terminal = nullptr;
    int m_terminalIndex = -1;
    QLabel *m_linkState = nullptr;
    QMenu *m_linkMenu = nullptr;
    bool m_painted = false;
};

#endif
