#include "placeteller.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

constexpr int kDelayMs = 30; // a window that is shown, placed and laid out tells once

bool changesPlaces(QEvent::Type type)
{
    return type == QEvent::Show || type == QEvent::Hide || type == QEvent::Move || type == QEvent::Resize;
}

} // namespace

PlaceTeller::PlaceTeller(QObject *parent)
    : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(kDelayMs);
    connect(&m_delay, &QTimer::timeout, this, &PlaceTeller::tellChanges);
    qApp->installEventFilter(this);
}

bool PlaceTeller::eventFilter(QObject *watched, QEvent *event)
{
    if (watched->isWidgetType() && changesPlaces(event->type()))
        m_delay.start();
    return QObject::eventFilter(watched, event);
}

void PlaceTeller::tellChanges()
{
    QHash<const QAbstractButton *, QRect> before;
    before.swap(m_told);
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        if (button == nullptr || !button->isVisible())
            continue;
        const QRect place(button->mapToGlobal(QPoint()), button->size());
        m_told.insert(button, place);
        if (before.value(button) != place)
            tell(button);
    }
}

void PlaceTeller::tell(const QAbstractButton *button)
{
    const QRect place = m_told.value(button);
    const QString name = button->objectName().isEmpty() ? button->text() : button->objectName();
    const QString line = QStringLiteral("place\t%1\t%2\t%3\t%4\t%5\t%6\n")
                             .arg(button->window()->windowTitle(), name)
                             .arg(place.x())
                             .arg(place.y())
                             .arg(place.width())
                             .arg(place.height());
    std::fputs(line.toUtf8().constData(), stdout);
    std::fflush(stdout);
}
