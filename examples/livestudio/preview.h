#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

/// The live picture, and all that can be done to it. Sizes in pixels.
class Preview : public QWidget
{
    Q_OBJECT

public:
    enum Effect { NoEffect, Warm, Cool, Mono };

    explicit Preview(QWidget *parent = nullptr);

    void setCamera(int camera) { m_camera = camera; }
    void setResolution(QSize size) { m_resolution = size; }
    void setBrightness(int percent) { m_brightness = percent; } ///< -50 to 50
    void setContrast(int percent) { m_contrast = percent; }     ///< -50 to 50
    void setBeauty(int percent) { m_beauty = percent; }         ///< 0 to 100
    void setZoom(double factor) { m_zoom = factor; }            ///< from 1
    void setEffect(Effect effect) { m_effect = effect; }
    void setMirrored(bool mirrored) { m_mirrored = mirrored; }

    /// What is seen at the moment, in the resolution of the camera.
    QImage picture() const { return m_picture; }
    /// Shows one moment, and moves no more.
    void freezeAt(double seconds);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void show(double seconds);
    QImage zoomed(const QImage &picture) const;
    void soften(QImage *picture) const;
    void colour(QImage *picture) const;
    void paintBadge(QPainter &painter, const QRectF &place) const;

    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_seconds = 0;
    QImage m_picture;
    int m_camera = 0;
    QSize m_resolution{960, 540};
    int m_brightness = 0;
    int m_contrast = 0;
    int m_beauty = 0;
    double m_zoom = 1;
    Effect m_effect = NoEffect;
    bool m_mirrored = false;
};
