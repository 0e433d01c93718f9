#pragma once

#include <QtWidgets/QPushButton>

/// The close button of a dialog: a QPushButton to every client and style sheet, that is transparent where its picture is
/// missing.
///
/// Where a style sheet has nothing to draw Qt falls back to the bevel of the platform's style, which takes its colour
/// from the button's ground: from a transparent ground styles make an opaque black.
class CloseButton : public QPushButton
{
public:
    explicit CloseButton(QWidget *dialog);
    ~CloseButton() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CloseButton)

    bool hasNothingToDraw() const;
    bool isPictureMissing() const;
    bool isThemed() const;
};
