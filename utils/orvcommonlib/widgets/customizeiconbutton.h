#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <array>

class QLabel;

/// A light button of an icon and a text whose whole look is style sheets: one for the button, one for the
/// icon and one for the text in each of the states normal, hover, pressed and disabled.
///
/// An empty sheet leaves the one in force that was applied before. The object name is the client's to set,
/// for sheets that select on it.
///
/// A click is a left press and its release within `QApplication::startDragDistance()`; `clicked()` is emitted
/// after the look has gone back. GUI thread only.
class ORVCOMMONLIB_EXPORT CustomizeIconButton : public QWidget
{
    Q_OBJECT

public:
    /// `iconSize` and `spacing` (between icon and text) are in device-independent pixels. `isCenter` puts
    /// expanding room on both sides.
    CustomizeIconButton(QSize iconSize, QString text, int spacing, QWidget *parent, bool isCenter);
    ~CustomizeIconButton() override;

    /// Paths of the icon's pictures in the four states.
    void setIconImage(QString normal, QString hover, QString pressed, QString disabled);
    /// Style sheets of the text label in the four states.
    void setTextStyle(QString normal, QString hover, QString pressed, QString disabled);
    /// Style sheets of the button itself in the four states. The spelling is the interface's.
    void setOveralStyle(QString normal, QString hover, QString pressed, QString disabled);

    QString text() const { return m_text; }

    /// This class's own flag, true at first.
    bool isButtonEnabled() const { return m_enabled; }
    /// Sets this class's own flag: a button that is not enabled ignores pointer and clicks and shows the
    /// disabled look. It hides QWidget::setEnabled(): the widget itself and `isEnabled()` stay as they are.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void clicked();

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomizeIconButton)

    enum State { Normal, Hover, Pressed, Disabled, StateCount };
    using Sheets = std::array<QString, StateCount>;

    void initControls(bool isCenter);
    void updateUI();
    void updateState();
    void applySheets(bool onlyIfChanged);
    State state() const;

    QLabel *m_iconLabel = nullptr;
    QLabel *m_textLabel = nullptr;
    QSize m_iconSize;
    QString m_text;
    int m_spacing = 0;
    Sheets m_overallSheets;
    Sheets m_iconSheets;
    Sheets m_textSheets;
    bool m_hovered = false;
    bool m_pressed = false;
    bool m_enabled = true;
    QPoint m_pressPos;
};
