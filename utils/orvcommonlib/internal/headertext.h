#pragma once

#include <QtWidgets/QLabel>

/// The text of a combo box's header: a QLabel to every client and style sheet, that shows as much of its text as there is
/// room for, with an ellipsis behind it.
///
/// It asks its layout for the room that the full text takes. Rich text and several lines are shown as they are.
class HeaderText : public QLabel
{
public:
    explicit HeaderText(QWidget *header);
    ~HeaderText() override;

    /// What was set, or what a client has set in its place by QLabel::setText().
    QString fullText() const;
    void setFullText(const QString &text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    Q_DISABLE_COPY(HeaderText)

    bool hasWidth() const;
    void elide();
    QString elided(const QString &full) const;
    QSize forFullText(QSize hint) const;

    QString m_full;
    QString m_shown;
};
