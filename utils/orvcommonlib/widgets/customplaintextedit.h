#pragma once

#include "orvcommonlib_global.h"

#include <QtWidgets/QPlainTextEdit>

/// A plain text edit whose viewport margins can be set from outside.
///
/// \image html class-customplaintextedit.png
///
/// GUI thread only.
///
/// \par When to use it
/// Where a text needs other room to each side. The same room on all sides is QTextDocument::setDocumentMargin() of a
/// QPlainTextEdit.
///
/// \par Example
/// \snippet text.cpp CustomPlainTextEdit
///
/// \since 1.0
/// \sa QPlainTextEdit
/// \ingroup text
class ORVCOMMONLIB_EXPORT CustomPlainTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// \param parent the owner; may be null
    explicit CustomPlainTextEdit(QWidget *parent = nullptr);
    ~CustomPlainTextEdit() override;

    /// Sets the room, in device-independent pixels, between the frame and the text.
    /// \param left,top,right,bottom the room on each side. Negative margins are passed on as they are: the
    ///        viewport then grows beyond the frame.
    void adjustViewPortMargin(int left, int top, int right, int bottom);

private:
    Q_DISABLE_COPY(CustomPlainTextEdit)
};
