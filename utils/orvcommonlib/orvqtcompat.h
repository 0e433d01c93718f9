#pragma once

#include <QtCore/QCoreApplication>
#include <QtGui/QKeySequence>
#include <QtGui/QMouseEvent>

/// Everything in which Qt 5 and Qt 6 differ for the sources of this library. A client that is built with both may use
/// it too: what is told of one Qt here holds for both.
///
/// \since 1.0
/// \ingroup helpers
namespace orvqt {

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// The event that QWidget::enterEvent() takes.
using EnterEvent = QEvent;

/// The number that QAbstractNativeEventFilter::nativeEventFilter() may answer with.
using NativeResult = long;

/// The seed that QHash hands to qHash().
using HashSeed = uint;

/// The ends of the scale of QFont::weight(), which is another one in each Qt.
constexpr int kLightestFont = 0;
constexpr int kHeaviestFont = 99; ///< the other end

/// Where the pointer was, on the whole desktop, in whole device-independent pixels.
/// \param event the event that tells
/// \return its global position
inline QPoint globalPosition(const QMouseEvent *event)
{
    return event->globalPos();
}

/// Where the pointer was in the widget, in whole device-independent pixels.
/// \param event the event that tells
/// \return its local position
inline QPoint position(const QHoverEvent *event)
{
    return event->pos();
}

/// Moves an event within its widget: whoever gets it afterwards sees the new position. Its global position stays.
/// \param event the event to move
/// \param position its new local position
inline void setPosition(QMouseEvent *event, const QPointF &position)
{
    event->setLocalPos(position);
}

/// A key and its modifiers in one number.
/// \param sequence a sequence that is not empty
/// \return its first combination
inline int firstCombination(const QKeySequence &sequence)
{
    return sequence[0];
}

/// Lets every screen have its own ratio, and icons as many pixels as it asks for; with Qt 6 they do so unasked. For a
/// client's main(), before the application is created.
inline void enableHighDpi()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

#else

using EnterEvent = QEnterEvent;
using NativeResult = qintptr;
using HashSeed = size_t;
constexpr int kLightestFont = 1;
constexpr int kHeaviestFont = 1000;

inline QPoint globalPosition(const QMouseEvent *event)
{
    return event->globalPosition().toPoint();
}

inline QPoint position(const QHoverEvent *event)
{
    return event->position().toPoint();
}

inline void setPosition(QMouseEvent *event, const QPointF &position)
{
    const QMouseEvent moved(event->type(), position, event->scenePosition(), event->globalPosition(),
                            event->button(), event->buttons(), event->modifiers(), event->source(),
                            event->pointingDevice());
    event->point(0) = moved.points().constFirst();
}

inline int firstCombination(const QKeySequence &sequence)
{
    return sequence[0].toCombined();
}

inline void enableHighDpi() {}

#endif

} // namespace orvqt
