#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

/// A widget that an example of the reference makes.
struct Sample
{
    QString name; ///< of its picture, without the suffix
    QWidget *(*make)(QWidget *page);
    bool isOnDark = false;  ///< it is made for dark grounds
    bool isFocused = false; ///< it is shown with the focus
};

/// The examples that have something to show, each made by the lines that stand in the reference.
QVector<Sample> samples();

QWidget *customPictureBtn(QWidget *page);
QWidget *customizeIconButton(QWidget *page);
QWidget *customToolButton(QWidget *page);
QWidget *customShadowCombox(QWidget *page);
QWidget *customComboxHeader(QWidget *page);
QWidget *customCombox(QWidget *page);
QWidget *horizontalSlider(QWidget *page);
QWidget *newHorizontalSlider(QWidget *page);
QWidget *focusedSlider(QWidget *page);
QWidget *ownSkin(QWidget *page);
QWidget *customSlider(QWidget *page);
QWidget *customBidirectionSlider(QWidget *page);
QWidget *customSliderBarWidget(QWidget *page);
QWidget *customPlainTextEdit(QWidget *page);
QWidget *customKeySequenceEdit(QWidget *page);
QWidget *wrapTextToolTip(QWidget *page);
