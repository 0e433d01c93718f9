#include "xpointer.h"

#include "orvqtcompat.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

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

using Connection = std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)>;

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void *)> reply(
        xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, false, static_cast<uint16_t>(name.size()), name.constData()),
            nullptr),
        std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// A question to the window manager. It answers once it has done what it was asked before, on a property of a window
/// of ours, and Qt is told of that after all else that has happened meanwhile.
class Question : public QAbstractNativeEventFilter
{
public:
    Question()
        : m_window(static_cast<xcb_window_t>(m_answered.winId()))
    {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool ask()
    {
        static const Connection connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
        static const xcb_atom_t request =
            atom(connection.get(), QByteArrayLiteral("_NET_REQUEST_FRAME_EXTENTS"));
        static const xcb_atom_t extents = atom(connection.get(), QByteArrayLiteral("_NET_FRAME_EXTENTS"));
        m_property = extents;

        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_window;
        message.type = request;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
        xcb_send_event(connection.get(), false, root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&message));
        xcb_flush(connection.get());
        QTimer::singleShot(kTimeoutMs, &m_loop, [this] { m_loop.exit(1); });
        return m_loop.exec() == 0;
    }

    bool nativeEventFilter(const QByteArray & /*eventType*/, void *message,
                           orvqt::NativeResult * /*result*/) override
    {
        const auto *event = static_cast<xcb_property_notify_event_t *>(message);
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && event->window == m_window &&
            event->atom == m_property)
            m_loop.exit(0);
        return false;
    }

private:
    QWindow m_answered;
    QEventLoop m_loop;
    xcb_window_t m_window;
    xcb_atom_t m_property = XCB_ATOM_NONE;
};

void settle()
{
    if (!Question().ask())
        qWarning("XPointer: the window manager does not answer");
    QTest::qWait(kSettleMs); // other programs have no part in that answer
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
