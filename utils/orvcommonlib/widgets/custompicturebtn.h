#pragma once

#include "orvcommonlib_global.h"

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtWidgets/QPushButton>

/// A push button that paints a picture and a text side by side on top of what QPushButton paints.
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
class ORVCOMMONLIB_EXPORT CustomPictureBtn : public QPushButton
{
    Q_OBJECT

public:
    explicit CustomPictureBtn(QWidget *parent = nullptr);

    /// The base gets the text as well and shows its own label of it, unless a style hides that.
    CustomPictureBtn(const QString &text, QWidget *parent);

    /// Icon and text go to the base; this class paints nothing of its own.
    CustomPictureBtn(const QIcon &icon, const QString &text, QWidget *parent);

    /// `image` serves as normal, disabled and checked picture; `span` is the gap between picture and text.
    /// With `autoResize` and a text the button gets the fixed size of both.
    CustomPictureBtn(const QImage &image, const QString &text, int span, QWidget *parent, bool autoResize);
    ~CustomPictureBtn() override;

    /// One font for all states.
    void setFont(const QFont &font);
    /// The hover font is stored but never drawn with: the text keeps its width under the pointer.
    void setFont(const QFont &normal, const QFont &hover, const QFont &checked, const QFont &disabled);

    /// One text colour for all states.
    void setFontColor(const QColor &color);
    void setFontColor(const QColor &normal, const QColor &hover, const QColor &checked,
                      const QColor &disabled);

    void setHoverIcon(QImage &image);
    void setCheckedIcon(QImage &image);
    void setDisabledIcon(QImage &image);

    /// Loads the normal picture from `path`, unless that is empty, and places it. Shows at the next paint.
    void setCustomImg(QString path, QRect rect);
    /// Sets the painted text and places it. Shows at the next paint.
    void setCustomText(QString text, QRect rect);
    /// The painted text.
    QString customText() const { return m_text; }
    void adjustIconRect(QRect rect);
    /// Takes effect at the next computation of size or layout.
    void setSpan(int span);

    /// Fixes the size to that of picture, gap and text. The height is the larger one of picture and font,
    /// where the font counts only when its size is given in pixels.
    void resizeWithIconAndText();

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomPictureBtn)

    const QFont &stateFont() const;
    const QImage &stateImage() const;
    const QColor &stateTextColor() const;
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
};
