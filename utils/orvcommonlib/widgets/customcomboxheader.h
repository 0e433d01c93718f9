#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

class PressGesture;
class QHBoxLayout;
class QLabel;

/// The part of a CustomShadowCombox that is always seen: the current text and an arrow. It reports clicks.
///
/// Its object name is "CustomComboxHeader". A click is a left press and its release within
/// `QApplication::startDragDistance()`. The arrow of the small style is the application's own picture,
/// ":/graffiti/resources/graffiti/fontbox/downarrow.svg"; without it the header shows no arrow. GUI thread
/// only.
class ORVCOMMONLIB_EXPORT CustomComboxHeader : public QWidget
{
    Q_OBJECT

public:
    /// The normal style: fixed at 260 x 48.
    explicit CustomComboxHeader(QWidget *parent);
    /// The small style, of no fixed size, when `isSmallStyle`; the normal one otherwise.
    CustomComboxHeader(bool isSmallStyle, QWidget *parent);
    ~CustomComboxHeader() override;

    void setText(QString text);
    /// The arrow: up, or the down arrow of the style.
    void setIconState(bool isUp);
    /// Sets the header's style sheet; "%1" in the template stands for its object name.
    void setCustomStyle(QString styleTemplate);
    /// Sets the text label's style sheet.
    void setCustomTextStyle(QString style);

Q_SIGNALS:
    void signalClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomComboxHeader)

    void initUI();
    void initSmallUIStyle();
    void buildRow(QHBoxLayout *layout, const QString &textStyle, QSize iconSize);
    QString downArrowStyle() const;

    QLabel *m_iconLabel = nullptr;
    QLabel *m_textLabel = nullptr;
    bool m_smallStyle = false;
    QPoint m_pressPos;
    QPoint m_releasePos;
    std::unique_ptr<PressGesture> m_press;
};
