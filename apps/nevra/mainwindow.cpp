// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "mainwindow.h"

#include "audiopage.h"
#include "csvtextquestion.h"
#include "headerpage.h"
#include "optionspage.h"
#include "picturepage.h"
#include "terminalpage.h"

#include "classes/nvroptions.h"
#include "classes/productsfile.h"
#include "classes/rtsfile.h"
#include "kvsettings.h"
#include "logger.h"
#include "models/audiosystemsmodel.h"
#include "models/bluetoothdevices.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nonaircraftradios.h"
#include "models/nvrlibraries.h"
#include "models/serialdatadevices.h"
#include "widgets/audiosystemstableeditwidget.h"
#include "widgets/bluetoothdevicestableeditwidget.h"
#include "widgets/headsetstableeditwidget.h"
#include "widgets/librarytools.h"
#include "widgets/legendsconverttableeditwidget.h"
#include "widgets/lowimpedanceintercomstableeditwidget.h"
#include "widgets/musicsystemstableeditwidget.h"
#include "widgets/nonaircraftradiostableeditwidget.h"
#include "widgets/productstableeditwidget.h"
#include "widgets/rtstableeditwidget.h"
#include "widgets/serialdatadevicestableeditwidget.h"
#include "widgets/tableeditwidget.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

namespace {
// List rows of pages carry the page's index in the stack; headings carry none.
constexpr int pageIndexRole = Qt::UserRole;
// The terminal page is built after the first paint, and at the latest this long after start.
constexpr int terminalLatestMs = 500;

QString portText(int number)
{
    return number > 0 ? QStringLiteral("COM%1").arg(number) : MainWindow::tr("none");
}
}

MainWindow::MainWindow(NvrOptions *options, QWidget *parent)
    : QMainWindow(parent), m_options(options), m_pageList(new QListWidget(this)), m_pages(new QStackedWidget(this)),
      m_portStatus(new QLabel(this)), m_csvTextQuestion(std::make_unique<CsvTextQuestion>())
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Nevra"));
    setWindowIcon(QIcon(QStringLiteral(":/images/nevra")));
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pageList->setObjectName(QStringLiteral("pageList"));
    auto *central = new QWidget(this);
    auto *layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pageList);
    layout->addWidget(m_pages, 1);
    setCentralWidget(central);
    connect(m_pageList, &QListWidget::currentRowChanged, this, [this](int row) {
        const QListWidgetItem *item = m_pageList->item(row);
        if (!item)
            return;
        if (item->data(pageIndexRole).isValid()) {
            makePage(item->data(pageIndexRole).toInt());
            m_pages->setCurrentIndex(item->data(pageIndexRole).toInt());
            return;
        }
        // A heading: move on to the page beside it, in the direction the arrow keys went.
        const int from = rowOfPage(m_pages->currentIndex());
        const int next = row + (row > from ? 1 : -1);
        m_pageList->setCurrentRow(next >= 0 && next < m_pageList->count() ? next : from);
    });
    connect(m_pages, &QStackedWidget::currentChanged, this,
            [this](int index) { m_pageList->setCurrentRow(rowOfPage(index)); });

    auto *welcome = new QLabel(tr("<h2>Nevra</h2>"
                                  "<p>Configure audio control panels and intercoms.</p>"
                                  "<p>Choose the serial ports of the link to the product with "
                                  "<b>Tools &gt; Options</b>.</p>"),
                               m_pages);
    welcome->setObjectName(QStringLiteral("welcomePage"));
    welcome->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    welcome->setMargin(16);
    welcome->setWordWrap(true);
    addPage(welcome, tr("Start"));
    addSection(tr("Libraries"));
    // Pages are built when first shown, so that the window appears without
    // waiting for every library to load and every table to fill.
    addPage([this] { return new RtsTableEditWidget(m_pages); }, tr("Radios"),
            [] { return RtsFile::instance()->askToSave(); });
    addPage([this] { return new HeadSetsTableEditWidget(m_pages); }, tr("Headsets"),
            [] { return NvrLibraries::headSets()->askToSave(true); });
    addPage([this] { return new AudioSystemsTableEditWidget(m_pages); }, tr("Audio Systems"),
            [] { return CsvTextQuestion::askToSave(AudioSystemsModel::instance()); });
    addPage([this] { return new LowImpedanceIntercomsTableEditWidget(m_pages); }, tr("Intercoms"),
            [] { return CsvTextQuestion::askToSave(LowImpedanceIntercomsModel::instance()); });
    addPage([this] { return new MusicSystemsTableEditWidget(m_pages); }, tr("Music Systems"),
            [] { return CsvTextQuestion::askToSave(MusicSystemsModel::instance()); });
    addPage([this] { return new BluetoothDevicesTableEditWidget(m_pages); }, tr("Bluetooth Devices"),
            [] { return CsvTextQuestion::askToSave(NvrLibraries::bluetoothDevices()); });
    addPage([this] { return new NonAircraftRadiosTableEditWidget(m_pages); }, tr("Non-Aircraft Radios"),
            [] { return CsvTextQuestion::askToSave(NvrLibraries::nonAircraftRadios()); });
    addPage([this] { return new SerialDataDevicesTableEditWidget(m_pages); }, tr("Serial Data Devices"),
            [] { return CsvTextQuestion::askToSave(NvrLibraries::serialDataDevices()); });
    addPage([this] { return new LegendsConvertTableEditWidget(m_pages); }, tr("Legends"),
            [] { return NvrLibraries::legends()->askToSave(true); });
    // Product headers look up hardware configurations in the products table, so
    // it is loaded at once even while its page is not yet built.
    ProductsFile::instance();
    addPage([this] { return new ProductConfigsWidget(m_pages); }, tr("Product Configurations"),
            [] { return ProductsFile::instance()->maybeSave(); });
    addSection(tr("Product"));
    const int headerIndex = m_pages->count();
    addPage([this] { return new HeaderPage(m_pages); }, tr("Product Header"), [this, headerIndex] {
        auto *page = qobject_cast<HeaderPage *>(m_pages->widget(headerIndex));
        return !page || page->maybeSave();
    });
    // Built right after the window first shows (or when first needed), so that the window comes up sooner.
    m_terminalIndex = m_pages->count();
    addPage([this] { return createTerminalPage(); }, tr("Terminal"));
    addPage([this] { return new PicturePage(m_pages); }, tr("Picture"));
    addSection(tr("Tools"));
    const int audioIndex = m_pages->count();
    addPage([this] { return new AudioPage(this); }, tr("Audio"), [this, audioIndex] {
        auto *page = qobject_cast<AudioPage *>(m_pages->widget(audioIndex));
        return !page || page->maybeSave();
    });
    addPage([this] { return new OptionsPage(m_options, m_pages); }, tr("Options"));
    // Wide enough for the longest title, and no wider: the pages need the room.
    m_pageList->setFixedWidth(m_pageList->sizeHintForColumn(0) + 2 * m_pageList->frameWidth() + 24);

    m_portStatus->setObjectName(QStringLiteral("portStatus"));
    statusBar()->addPermanentWidget(m_portStatus);
    m_linkState = new QLabel(tr("not connected"), this);
    m_linkState->setObjectName(QStringLiteral("linkState"));
    statusBar()->addPermanentWidget(m_linkState);
    connect(m_options, &NvrOptions::comPortNumberChanged, this, &MainWindow::updatePortStatus);
    connect(m_options, &NvrOptions::comPort2NumberChanged, this, &MainWindow::updatePortStatus);
    updatePortStatus();
    createMenus();

    KvSettings settings;
    resize(900, 600);
    restoreGeometry(settings.value(QStringLiteral("mainwindow/geometry")).toByteArray());
    showPage(settings.value(QStringLiteral("mainwindow/page"), 0).toInt());
    // A window that is not shown, or not painted (started minimised), still connects at start.
    QTimer::singleShot(0, this, [this] {
        if (!isVisible())
            terminal();
    });
    QTimer::singleShot(terminalLatestMs, this, &MainWindow::terminal);
}

MainWindow::~MainWindow() = default;

QString MainWindow::pageTitle(int index) const
{
    const QListWidgetItem *item = m_pageList->item(rowOfPage(index));
    return item ? item->text() : QString();
}

int MainWindow::pageIndex(const QString &title) const
{
    for (int row = 0; row < m_pageList->count(); ++row) {
        const QListWidgetItem *item = m_pageList->item(row);
        if (item->text() == title && item->data(pageIndexRole).isValid())
            return item->data(pageIndexRole).toInt();
    }
    return -1;
}

void MainWindow::addPage(QWidget *page, const QString &title, const std::function<bool()> &askToSave)
{
    auto *item = new QListWidgetItem(title, m_pageList);
    item->setData(pageIndexRole, m_pages->addWidget(page));
    if (auto *editor = qobject_cast<TableEditWidget *>(page))
        editor->readSettings();
    if (askToSave)
        m_savePrompts.append(askToSave);
}

void MainWindow::addPage(const std::function<QWidget *()> &make, const QString &title,
                         const std::function<bool()> &askToSave)
{
    auto *placeholder = new QWidget(m_pages);
    m_pageMakers.insert(placeholder, make);
    auto *item = new QListWidgetItem(title, m_pageList);
    item->setData(pageIndexRole, m_pages->addWidget(placeholder));
    if (askToSave)
        m_savePrompts.append(askToSave);
}

void MainWindow::makePage(int index)
{
    QWidget *placeholder = m_pages->widget(index);
    const auto maker = m_pageMakers.find(placeholder);
    if (maker == m_pageMakers.end())
        return;
    const std::function<QWidget *()> make = maker.value();
    m_pageMakers.erase(maker);
    QWidget *page = make();
    // The page takes the placeholder's index; the page shown stays the same.
    m_pages->insertWidget(index, page);
    m_pages->removeWidget(placeholder);
    delete placeholder;
    if (auto *editor = qobject_cast<TableEditWidget *>(page))
        editor->readSettings();
}

TerminalPage *MainWindow::terminal()
{
    makePage(m_terminalIndex);
    return m_terminal;
}

TerminalPage *MainWindow::createTerminalPage()
{
    m_terminal = new TerminalPage(m_options, m_pages);
    m_linkState->setText(m_terminal->stateText());
    connect(m_terminal, &TerminalPage::stateChanged, m_linkState, &QLabel::setText);
    // From now on the Link menu holds the page's own actions, which know when they apply.
    const QList<QAction *> standIns = m_linkMenu->actions();
    for (QAction *action : standIns) {
        // Later: this may run from the stand-in's own trigger.
        m_linkMenu->removeAction(action);
        action->deleteLater();
    }
    m_linkMenu->addActions({m_terminal->connectAction(), m_terminal->disconnectAction()});
    return m_terminal;
}

void MainWindow::addSection(const QString &title)
{
    auto *item = new QListWidgetItem(title, m_pageList);
    // Enabled, so that it does not look greyed out; the list moves on from it to a page.
    item->setFlags(Qt::ItemIsEnabled);
    QFont font = item->font();
    font.setBold(true);
    item->setFont(font);
}

void MainWindow::showPage(int index)
{
    if (index >= 0 && index < m_pages->count()) {
        makePage(index);
        m_pages->setCurrentIndex(index);
    }
    m_pageList->setCurrentRow(rowOfPage(m_pages->currentIndex()));
}

void MainWindow::stepPage(int step)
{
    const int count = m_pages->count();
    showPage((m_pages->currentIndex() + step + count) % count);
}

int MainWindow::rowOfPage(int index) const
{
    for (int row = 0; row < m_pageList->count(); ++row) {
        const QVariant page = m_pageList->item(row)->data(pageIndexRole);
        if (page.isValid() && page.toInt() == index)
            return row;
    }
    return -1;
}

void MainWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    // Edit: the tools of the library page shown (undo naming its step, copy, paste, delete, filter).
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    edit->setObjectName(QStringLiteral("editMenu"));
    const auto showEditActions = [this, edit] {
        edit->clear();
        // Every library page, whatever kind of editor it is, has the same tools.
        QWidget *page = m_pages->currentWidget();
        auto *tools = page ? page->findChild<LibraryTools *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
        const QList<QAction *> actions = tools ? tools->editActions() : QList<QAction *>();
        for (QAction *action : actions) {
            // Import and Export, which work on files, apart from the rest.
            if (action->objectName() == QLatin1String("importAction"))
                edit->addSeparator();
            edit->addAction(action);
        }
        edit->setEnabled(tools != nullptr);
    };
    connect(m_pages, &QStackedWidget::currentChanged, edit, showEditActions);
    showEditActions();

    QMenu *go = menuBar()->addMenu(tr("&Go"));
    QAction *next = go->addAction(tr("&Next Page"), this, [this] { stepPage(1); });
    next->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageDown));
    QAction *previous = go->addAction(tr("&Previous Page"), this, [this] { stepPage(-1); });
    previous->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_PageUp));

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    QAction *options = tools->addAction(tr("&Options..."), this, &MainWindow::editOptions);
    options->setObjectName(QStringLiteral("actionOptions"));
    options->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));

    // Until the terminal page is built, these stand in for its actions and build it.
    m_linkMenu = menuBar()->addMenu(tr("&Link"));
    QAction *connectPort = m_linkMenu->addAction(tr("&Connect"), this, [this] { terminal()->connectPort(); });
    connectPort->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    QAction *disconnectPort = m_linkMenu->addAction(tr("&Disconnect"));
    disconnectPort->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    disconnectPort->setEnabled(false);

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Nevra"), this, &MainWindow::about);
}

void MainWindow::updatePortStatus()
{
    m_portStatus->setText(tr("Configuration port: %1   Control port: %2")
                              .arg(portText(m_options->comPortNumber()), portText(m_options->comPort2Number())));
}

void MainWindow::editOptions()
{
    m_options->editOptions();
}

void MainWindow::about()
{
    QMessageBox::about(this, tr("About Nevra"),
                       tr("<b>Nevra</b> %1<p>Configuration of audio control panels and intercoms.</p>")
                           .arg(QApplication::applicationVersion()));
}

bool MainWindow::event(QEvent *event)
{
    // The first paint is when the user first sees the window; the line lets start-up be timed from outside.
    if (event->type() == QEvent::Paint && !m_painted) {
        m_painted = true;
        LOG_INFO(QStringLiteral("Window shown"));
        QTimer::singleShot(0, this, &MainWindow::terminal);
    }
    return QMainWindow::event(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    for (const auto &askToSave : std::as_const(m_savePrompts)) {
        if (!askToSave()) {
            event->ignore();
            return;
        }
    }
    for (int i = 0; i < m_pages->count(); ++i) {
        if (auto *editor = qobject_cast<TableEditWidget *>(m_pages->widget(i)))
            editor->saveSettings();
    }
    KvSettings settings;
    settings.setValue(QStringLiteral("mainwindow/geometry"), saveGeometry());
    settings.setValue(QStringLiteral("mainwindow/page"), m_pages->currentIndex());
    event->accept();
}
