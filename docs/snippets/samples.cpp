#include "samples.h"

QVector<Sample> samples()
{
    return {
        {QStringLiteral("class-custompicturebtn"), customPictureBtn},
        {QStringLiteral("class-customizeiconbutton"), customizeIconButton},
        {QStringLiteral("class-customtoolbutton"), customToolButton},
        {QStringLiteral("class-customshadowcombox"), customShadowCombox},
        {QStringLiteral("class-customcomboxheader"), customComboxHeader},
        {QStringLiteral("class-customcombox"), customCombox},
        {QStringLiteral("class-horizontalslider"), horizontalSlider, true},
        {QStringLiteral("class-newhorizontalslider"), newHorizontalSlider},
        {QStringLiteral("class-focusmark"), focusedSlider, true, true},
        {QStringLiteral("class-ownskin"), ownSkin},
        {QStringLiteral("class-customslider"), customSlider},
        {QStringLiteral("class-custombidirectionslider"), customBidirectionSlider},
        {QStringLiteral("class-customsliderbarwidget"), customSliderBarWidget},
        {QStringLiteral("class-customplaintextedit"), customPlainTextEdit},
        {QStringLiteral("class-customkeysequenceedit"), customKeySequenceEdit},
        {QStringLiteral("class-customwraptexttooltip"), wrapTextToolTip},
    };
}
