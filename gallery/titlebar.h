#pragma once

#include "orvqtcompat.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QWidget>

/// One of the buttons of a title bar; its glyph is drawn, so that it is sharp at every ratio.
class TitleButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum Glyph { Dark, Minimise, Maximise, Restore, Close };

    TitleButton(Glyph glyph, const QString &toolTip, QWidget *parent = nullptr);

    void setGlyph(Glyph glyph);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(orvqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void drawGlyph(QPainter &painter) const;

    Glyph m_glyph;
};

/// The strip at the top of the main window: its name, the switch of the look and the three buttons. A press
/// beside the buttons goes on to the window, which drags itself by it.
class TitleBar : public QWidget
{
    Q_OBJECT

public:
    explicit TitleBar(QWidget *parent = nullptr);

    /// Whether the middle button offers to restore the window rather than to maximise it.
    void setMaximised(bool maximised);

Q_SIGNALS:
    void minimiseClicked();
    void maximiseClicked();
    void closeClicked();

private:
    TitleButton *m_maximise;
};
