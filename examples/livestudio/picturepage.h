#pragma once

#include <QtWidgets>

class CustomShadowCombox;
class Preview;

/// The page with the camera and what can be set of its picture.
class PicturePage : public QWidget
{
    Q_OBJECT

public:
    PicturePage(Preview *preview, QWidget *parent);

private:
    void addCameras();
    void addResolutions();
    void addSlider(const QString &name, int minimum, int maximum, const char *property);
    void addZoom();
    CustomShadowCombox *addCombo(const QString &name, const QStringList &rows, const QString &whyNot);
    void addRow(const QList<QWidget *> &widgets);

    Preview *m_preview;
    QVBoxLayout *m_column;
};
