#pragma once

#include "orvcommonlib_global.h"
#include "orvqtcompat.h"

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtWidgets/QPushButton>

/// A push button that paints a picture and a text side by side on top of what QPushButton paints.
///
/// \image html class-custompicturebtn.png
///
/// Pictures, text colours and fonts differ by state. Pictures: checked, else disabled, else hovered, else
/// normal, each but the checked one falling through to the next where it is not set; a checked button without
/// a checked picture shows none. Text: checked, else (enabled) hovered or normal, else disabled.
///
/// Picture and text each have a rectangle, in device-independent pixels. Where none is given, the first paint
/// centres picture, gap and text as one group and keeps the result: later changes of size or text move
/// nothing until a setter gives new rectangles.
///
/// Pictures are copied. GUI thread only.
///
/// The text is red (`pictureText`, see OrvLook) until setFontColor() is called.
///
/// \par When to use it
/// For a picture and a text, in places of your own, that change with the state. One icon beside a text is a
/// QPushButton; a look made of style sheets alone is a CustomizeIconButton.
///
/// \par Example
/// \snippet buttons.cpp CustomPictureBtn
///
/// \since 1.0
/// \sa CustomizeIconButton, QPushButton, \ref guide_buttons
/// \ingroup buttons
class ORVCOMMONLIB_EXPORT CustomPictureBtn : public QPushButton
{
    Q_OBJECT
    /// The gap between picture and text.
    Q_PROPERTY(int span READ span WRITE setSpan)

public:
    /// Without pictures and text, to be given later.
    /// \param parent the owner; may be null
    explicit CustomPictureBtn(QWidget *parent = nullptr);

    /// With a text.
    /// \param text   painted by this class, and given to the base, which shows its own label of it as well,
    ///               unless a style hides that
    /// \param parent the owner; may be null
    CustomPictureBtn(const QString &text, QWidget *parent);

    /// With an icon and a text of the base: this class paints nothing of its own.
    /// \param icon,text what QPushButton shows
    /// \param parent    the owner; may be null
    CustomPictureBtn(const QIcon &icon, const QString &text, QWidget *parent);

    /// With a picture and a text.
    /// \param image      the normal, disabled and checked picture
    /// \param text       the text beside it
    /// \param span       the gap between picture and text
    /// \param parent     the owner; may be null
    /// \param autoResize whether the button gets the fixed size of both; only with a text
    CustomPictureBtn(const QImage &image, const QString &text, int span, QWidget *parent, bool autoResize);
    ~CustomPictureBtn() override;

    /// Sets one font for all states.
    /// \param font the font
    void setFont(const QFont &font);
    /// Sets the fonts of the states.
    /// \param normal,checked,disabled the font in each state
    /// \param hover stored but never drawn with: the text keeps its width under the pointer
    void setFont(const QFont &normal, const QFont &hover, const QFont &checked, const QFont &disabled);

    /// Sets one text colour for all states.
    /// \param color the colour; at first that of the look in force, "#FF4D4D" in the light one, see OrvLook
    void setFontColor(const QColor &color);
    /// Sets the text colours of the states.
    /// \param normal,hover,checked,disabled the colour in each state
    void setFontColor(const QColor &normal, const QColor &hover, const QColor &checked,
                      const QColor &disabled);

    /// Sets the picture under the pointer.
    /// \param image the picture; a null one shows the normal one instead
    void setHoverIcon(QImage &image);
    /// Sets the picture of a checked button.
    /// \param image the picture; a null one shows none
    void setCheckedIcon(QImage &image);
    /// Sets the picture of a disabled button.
    /// \param image the picture; a null one shows the hover or normal one instead
    void setDisabledIcon(QImage &image);

    /// Loads the normal picture and places it. Shows at the next paint.
    /// \param path a file name or resource path; an empty one keeps the picture, one that cannot be read
    ///             leaves none
    /// \param rect where the picture is drawn, scaled to fit; a null one is computed at the next paint,
    ///             unless the text has a rectangle: then no picture is drawn
    void setCustomImg(QString path, QRect rect);
    /// Sets the painted text and places it. Shows at the next paint.
    /// \param text the text
    /// \param rect where it is drawn; a null one is computed at the next paint
    void setCustomText(QString text, QRect rect);
    /// \return the painted text
    QString customText() const { return m_text; }
    /// Places the picture.
    /// \param rect as for setCustomImg()
    void adjustIconRect(QRect rect);
    /// Sets the gap between picture and text. Takes effect at the next computation of size or layout.
    /// \param span the gap; 0 at first
    void setSpan(int span) { m_span = span; }
    /// \return the gap between picture and text
    int span() const { return m_span; }

    /// Fixes the size to that of picture, gap and text. The height is the larger one of picture and font,
    /// where the font counts only when its size is given in pixels.
    void resizeWithIconAndText();

protected:
    void enterEvent(orvqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomPictureBtn)

    const QFont &stateFont() const;
    const QImage &stateImage() const;
    QColor stateTextColor() const;
    void layOut(const QFont &font);

    QImage m_normalImage;
    QImage m_disabledImage;
    QString m_text;
    int m_span = 0;
    QImage m_checkedImage;
    QImage m_hoverImage;
    QRect m_iconRect;
    QRect m_textRect;
    QColor m_normalColor;
    QColor m_hoverColor;
    QColor m_checkedColor;
    QColor m_disabledColor;
    QFont m_normalFont;
    QFont m_hoverFont;
    QFont m_checkedFont;
    QFont m_disabledFont;
    bool m_hovered = false;
    bool m_hasOwnColors = false;
};
