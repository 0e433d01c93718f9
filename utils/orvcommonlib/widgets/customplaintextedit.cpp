#include "customplaintextedit.h"

CustomPlainTextEdit::CustomPlainTextEdit(QWidget *parent)
    : QPlainTextEdit(parent)
{
}

CustomPlainTextEdit::~CustomPlainTextEdit() = default;

void CustomPlainTextEdit::adjustViewPortMargin(int left, int top, int right, int bottom)
{
    setViewportMargins(left, top, right, bottom);
}
