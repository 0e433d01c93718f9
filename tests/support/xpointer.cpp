#include "xpointer.h"

#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace XPointer {

namespace {

constexpr int kGlideSteps = 8;
constexpr int kTimeoutMs = 10000;
constexpr int kSettleMs = 25;

QPoint toNative(QPoint globalPos)
{
    const qreal ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    return (QPointF(globalPos) * ratio).toPoint();
}

void settle()
{
    // The server has handled the request when xdotool ends, but Qt reads the resulting events in a thread of
    // its own.
    QTest::qWait(kSettleMs);
}

} // namespace

QString xdotool(const QStringList &arguments)
{
    QProcess process;
    QEventLoop loop;
    QObject::connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QTimer::singleShot(kTimeoutMs, &loop, &QEventLoop::quit);
    process.start(QStringLiteral("xdotool"), arguments);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    settle();
    return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

void moveTo(QPoint globalPos)
{
    const QPoint native = toNative(globalPos);
    xdotool({QStringLiteral("mousemove"), QString::number(native.x()), QString::number(native.y())});
}

void press(int button)
{
    xdotool({QStringLiteral("mousedown"), QString::number(button)});
}

void release(int button)
{
    xdotool({QStringLiteral("mouseup"), QString::number(button)});
}

void click(QPoint globalPos, int button)
{
    moveTo(globalPos);
    press(button);
    release(button);
}

void glideTo(QPoint to)
{
    const QPoint from = QCursor::pos();
    for (int step = 1; step <= kGlideSteps; ++step)
        moveTo(from + (to - from) * step / kGlideSteps);
}

void drag(QPoint from, QPoint to, int button)
{
    moveTo(from);
    press(button);
    glideTo(to);
    release(button);
}

void key(const QString &combination)
{
    xdotool({QStringLiteral("key"), combination});
}

bool showAndWait(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
    const bool exposed = QTest::qWaitForWindowExposed(window);
    settle();
    return exposed;
}

QImage grabScreen()
{
    settle();
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

} // namespace XPointer
