#include "controlcollection.h"

#include "control.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "customkeysequenceedit.h"
#include "custompicturebtn.h"
#include "customplaintextedit.h"
#include "customshadowcombox.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "tooltipinform.h"

namespace {

template<typename Widget>
QWidget *make(QWidget *parent, bool)
{
    return new Widget(parent);
}

QWidget *makeToolTip(QWidget *parent, bool inDesigner)
{
    return inDesigner ? new ToolTipInForm(parent) : new customWrapTextToolTip(parent);
}

constexpr ControlDescription kControls[] = {
    {"HorizontalSlider", "QWidget", "horizontalSlider",
     "A painted horizontal slider, 206 pixels wide, whose groove takes a colour up to the handle; a mark "
     "below the "
     "groove can show the centre of its range.",
     QSize(206, 14), "", &make<HorizontalSlider>},
    {"NewHorizontalSlider", "QWidget", "newHorizontalSlider",
     "A painted horizontal slider of a size of its own, with a look for the times when it is not to be used.",
     QSize(206, 14), "", &make<NewHorizontalSlider>},
    {"CustomSlider", "QSlider", "clickSlider",
     "A QSlider that also tells which value a click on it means, and leaves it to the client to go there.",
     QSize(160, 24), "<property name=\"orientation\"><enum>Qt::Horizontal</enum></property>",
     &make<CustomSlider>},
    {"CustomBidirectionSlider", "QSlider", "bidirectionSlider",
     "A horizontal QSlider with a tick at the centre of its range and a coloured line from there to the "
     "handle.",
     QSize(200, 30), "", &make<CustomBidirectionSlider>},
    {"CustomSliderBarWidget", "QWidget", "sliderBar",
     "A painted bar with a few steps, 117 x 12 pixels, that the user clicks or drags to; it tells the chosen "
     "step "
     "when the button is released.",
     QSize(117, 12), "", &make<CustomSliderBarWidget>},
    {"CustomPictureBtn", "QPushButton", "pictureButton",
     "A push button that paints a picture and a text side by side on top of what QPushButton paints.",
     QSize(120, 32), "<property name=\"text\"><string>Picture button</string></property>",
     &make<CustomPictureBtn>},
    {"CustomizeIconButton", "QWidget", "iconButton",
     "A light button of an icon and a text whose whole look is style sheets: one for the button, one for the "
     "icon "
     "and one for the text in each of the states normal, hover, pressed and disabled.",
     QSize(120, 32), "<property name=\"text\"><string>Icon button</string></property>",
     &make<CustomizeIconButton>},
    {"CustomToolButton", "QToolButton", "panelButton",
     "A tool button that carries up to three attached panels: one opened by a click, one by hovering, and "
     "one by a "
     "right click or a long press.",
     QSize(32, 32), "", &make<CustomToolButton>},
    {"CustomShadowCombox", "QWidget", "shadowComboBox",
     "A drop-down selector with a list in a shadowed window of its own, in a normal look (48 high) and a "
     "small one.",
     QSize(260, 48), "", &make<CustomShadowCombox>},
    {"CustomComboxHeader", "QWidget", "comboBoxHeader",
     "The part of a CustomShadowCombox that is always seen: the current text, elided where it is too long, "
     "and an arrow.",
     QSize(260, 48), "<property name=\"text\"><string>Header</string></property>", &make<CustomComboxHeader>},
    {"customcombox", "QComboBox", "plainComboBox",
     "A combo box that looks editable but is not: its text can be styled and sized like a line edit, and a "
     "left "
     "click anywhere on it opens the list.",
     QSize(160, 32), "", &make<customcombox>},
    {"CustomKeySequenceEdit", "QKeySequenceEdit", "keyEdit",
     "An editor for one key combination, such as the shortcut of a hotkey, with a placeholder and access to "
     "the "
     "look of its inner line edit.",
     QSize(160, 32), "", &make<CustomKeySequenceEdit>},
    {"CustomPlainTextEdit", "QPlainTextEdit", "marginTextEdit",
     "A plain text edit whose viewport margins can be set from outside.", QSize(240, 120), "",
     &make<CustomPlainTextEdit>},
    {"customWrapTextToolTip", "QDialog", "textToolTip",
     "A dark, word-wrapping tooltip window with a small arrow.", QSize(160, 30), "", &makeToolTip},
};

} // namespace

ControlCollection::ControlCollection(QObject *parent)
    : QObject(parent)
{
    for (const ControlDescription &description : kControls)
        m_controls.append(new Control(description, this));
}
