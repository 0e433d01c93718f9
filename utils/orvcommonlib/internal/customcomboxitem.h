#pragma once

#include "lazilystyled.h"
#include "orvqtcompat.h"
#include "pressgesture.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

class QLabel;

/// One row of the combo box's list: a text, a check mark for the current row, and a badge for a row that
/// starts gray.
///
/// A click is reported by signal with the row's index; a gray row reports it through a signal of its own. The
/// row may be destroyed by what is connected to these signals.
class CustomComboxItem : public LazilyStyled<QWidget>
{
    Q_OBJECT

public:
    CustomComboxItem(QString text, QWidget *parent);
    CustomComboxItem(bool isSmall, QString text, QWidget *parent);
    CustomComboxItem(bool isSmall, QString text, int itemHeight, int fontSize, int iconSize, QWidget *parent);
    CustomComboxItem(QString text, QWidget *parent, bool isGray, bool isChinese);
    CustomComboxItem(QString text, int fontSize, QWidget *parent);
    /// The small look with another height.
    static CustomComboxItem *newSmallRow(QString text, int itemHeight, QWidget *parent);

    bool isChecked() const { return m_checked; }
    void setChecked(bool checked) { change(&m_checked, checked); }
    bool isGray() const { return m_gray; }
    /// A row that becomes gray only here has no badge: just its text turns gray.
    void setGrayState(bool gray) { change(&m_gray, gray); }
    bool isHovered() const { return m_hovered; }
    void setHovered(bool hovered) { change(&m_hovered, hovered); }

    /// The full text; the label may show an elided copy.
    QString text() const { return m_text; }
    void setText(const QString &text);
    QVariant data() const { return m_data; }
    void setData(const QVariant &data) { m_data = data; }
    /// The row's position in its list, -1 at first.
    void setIndex(int index) { m_index = index; }

    /// Reports a click, by the signal of a gray row or of any other.
    void click();

    QSize sizeHint() const override { return {0, m_itemHeight}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void signalClickItem(int index);
    void signalClickGrayItem(int index);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(orvqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomComboxItem)

    void initUI();
    QLabel *newImageLabel(QSize size);
    void change(bool *flag, bool value);
    void updateStyle();
    void updateLabels();
    void elideText();
    void applyRowStyle();
    void applyTextStyle();

    QLabel *m_checkLabel = nullptr;
    QLabel *m_textLabel = nullptr;
    QLabel *m_badgeLabel = nullptr;
    QPoint m_pressPos;
    QPoint m_releasePos;
    PressGesture m_press{this};
    bool m_small = false;
    QString m_text;
    QVariant m_data;
    int m_index = -1;
    bool m_checked = false;
    bool m_hovered = false;
    bool m_gray = false;
    int m_itemHeight;
    int m_fontSize;
    int m_iconSize;
};
