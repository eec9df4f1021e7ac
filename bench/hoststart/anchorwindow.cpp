// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// An empty main window that writes "Window shown" to the file named by its
// argument on its first paint, as the host logs it: the start-up every Qt
// window program pays, against which the host's start is measured.
// Usage: bench_hoststart_anchor FILE

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

namespace {
class AnchorWindow : public QMainWindow
{
public:
    explicit AnchorWindow(const QString &fileName) : m_fileName(fileName)
    {
        menuBar()->addMenu(QStringLiteral("&File"));
        setCentralWidget(new QLabel(QStringLiteral("Anchor"), this));
        statusBar()->showMessage(QStringLiteral("Ready"));
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !m_painted) {
            m_painted = true;
            QFile file(m_fileName);
            if (file.open(QIODevice::Append))
                file.write("Window shown\n");
        }
        return QMainWindow::event(event);
    }

private:
    QString m_fileName;
    bool m_painted = false;
};
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc < 2)
        return 2;
    AnchorWindow window(QString::fromLocal8Bit(argv[1]));
    window.resize(900, 600);
    window.show();
    return app.exec();
}
