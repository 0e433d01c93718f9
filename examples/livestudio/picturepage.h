#pragma once

#include <QtWidgets/QWidget>

class CustomShadowCombox;
class Preview;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

/// The page with the camera and what can be set of its picture. The settings keep it all.
class PicturePage : public QWidget
{
    Q_OBJECT

public:
    PicturePage(Preview *preview, QWidget *parent);

private:
    void addCameras();
    void addResolutions();
    void addSlider(const QString &name, int minimum, int maximum, const QString &key,
                   void (Preview::*set)(int));
    void addZoom();
    CustomShadowCombox *addCombo(const QString &name);
    QHBoxLayout *addRow(QWidget *left, QWidget *right);
    void addCamera(const QString &name);
    void chooseCamera(int row);

    Preview *m_preview;
    QVBoxLayout *m_column;
    CustomShadowCombox *m_camera;
    QPushButton *m_unplug;
    int m_cameras = 0; // that there ever were
};
