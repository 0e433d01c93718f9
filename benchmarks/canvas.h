#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

/// What widgets are painted into to measure the painting alone. It starts transparent: blending over whatever
/// the memory held would take its own time.
class Canvas
{
public:
    explicit Canvas(QSize size)
        : m_image(size, QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::transparent);
    }

    void paint(QWidget &widget) { widget.render(&m_image, QPoint(), QRegion(), QWidget::DrawChildren); }

private:
    QImage m_image;
};
