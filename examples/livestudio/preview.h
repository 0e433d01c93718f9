#pragma once

#include <QtWidgets>

/// The live picture: somebody in a room with lights, painted where a real client shows its camera. What the user sets of it
/// are properties of these names, which the settings keep: "camera"; "resolution", a size; "brightness" and "contrast", from
/// -50 to 50; "beauty", from 0 to 100; "zoom", a step; "tint", the name of a colour.
class Preview : public QWidget
{
    Q_OBJECT

public:
    explicit Preview(QWidget *parent);

    /// Sets a property, and keeps it in the settings.
    void set(const char *name, const QVariant &value);
    static double zoomFactor(int step) { return 1 + step / 2.; }
    /// What is seen now, in the camera's resolution.
    QImage picture() const { return m_picture; }
    /// Shows one moment, and moves no more.
    void freezeAt(double seconds);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int number(const char *name) const { return property(name).toInt(); }
    void takePicture(double seconds);
    void paintScene(QPainter &painter) const;
    void treatPicture();

    QTimer m_timer;
    double m_seconds = 0;
    QPixmap m_person;
    QImage m_picture;
};
