#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QPushButton>

/// A button that shows a colour with its name and lets the user choose another one.
class ColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ColorButton(const QColor &color, QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);

Q_SIGNALS:
    void colorChanged(const QColor &color);

private:
    void choose();

    QColor m_color;
};
