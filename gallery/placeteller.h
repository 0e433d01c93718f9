#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/QTimer>

class QAbstractButton;

/// Writes to standard output where the buttons of the application's windows are, whenever one comes or moves,
/// for whom drives the gallery from outside with a pointer:
///     place<TAB>window title<TAB>object name of the button, or else its
///     text<TAB>x<TAB>y<TAB>width<TAB>height
/// in screen coordinates.
class PlaceTeller : public QObject
{
    Q_OBJECT

public:
    explicit PlaceTeller(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tellChanges();
    void tell(const QAbstractButton *button);

    QTimer m_delay;
    QHash<const QAbstractButton *, QRect> m_told;
};
