#pragma once

#include <QtCore/QMargins>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

/// A magnified picture with the four lines along which a nine-patch cuts it.
class SlicePicture : public QWidget
{
    Q_OBJECT

public:
    explicit SlicePicture(QWidget *parent = nullptr);

    void setPicture(const QPixmap &picture, const QMargins &borders);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture;
    QMargins m_borders;
    int m_factor = 1;
};

/// Fills a rectangle with the pattern that stands for transparency.
void fillTransparencyPattern(QPainter &painter, const QRect &rect);
