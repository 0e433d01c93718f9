#pragma once

#include <QtWidgets/QWidget>

class CustomShadowCombox;
class Preview;
class QVBoxLayout;

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
    CustomShadowCombox *newCombo(const QString &name, const QStringList &rows, const QString &whyNot);
    void addRow(const QList<QWidget *> &widgets);

    Preview *m_preview;
    QVBoxLayout *m_column;
};
