#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtWidgets/QSlider>

/// A QSlider that also tells which value a click on it means, and leaves it to the client to go there.
///
/// To be used in the GUI thread only. Logs nothing.
class ORVCOMMONLIB_EXPORT CustomSlider : public QSlider
{
    Q_OBJECT

public:
    explicit CustomSlider(QWidget *parent = nullptr);
    CustomSlider(Qt::Orientation orientation, QWidget *parent);
    ~CustomSlider() override;

Q_SIGNALS:
    /// A left click, whose release is less than 5 pixels away from its press, means this value: the share of
    /// the release's x in the slider's width, rounded, and never outside the range. Deliberately so in a
    /// vertical slider too. Comes after QSlider has handled the release; the slider's own value is not
    /// changed by it.
    void signalClickValue(int value);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Q_DISABLE_COPY(CustomSlider)

    int clickedValue() const;

    bool m_pressed = false;
    QPoint m_pressPosition;
    QPoint m_releasePosition;
};
