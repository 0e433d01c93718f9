#include "samples.h"

#include "customkeysequenceedit.h"
#include "customplaintextedit.h"
#include "customwraptexttooltip.h"

QWidget *customPlainTextEdit(QWidget *page)
{
    //! [CustomPlainTextEdit]
    auto *edit = new CustomPlainTextEdit(page);
    edit->adjustViewPortMargin(16, 12, 16, 12);
    edit->setPlainText(QStringLiteral("There is room around this text."));
    //! [CustomPlainTextEdit]
    edit->setFixedSize(260, 70);
    return edit;
}

QWidget *customKeySequenceEdit(QWidget *page)
{
    //! [CustomKeySequenceEdit]
    auto *editor = new CustomKeySequenceEdit(page, QStringLiteral("Press a combination"));
    editor->setEditSize(QSize(200, 32));
    QObject::connect(editor, &QKeySequenceEdit::editingFinished, page,
                     [editor] { qInfo("%s", qPrintable(editor->keySequence().toString())); });
    //! [CustomKeySequenceEdit]
    return editor;
}

QWidget *wrapTextToolTip(QWidget *page)
{
    //! [customWrapTextToolTip]
    auto *tip = new customWrapTextToolTip(customWrapTextToolTip::DirectionBottom, /*width*/ 220, page,
                                          /*rightMargin*/ 10);
    tip->setText(QStringLiteral("The camera is used by another program, which has to be closed first."));
    tip->move(page->mapToGlobal(QPoint(40, 40)));
    tip->show(); // and is deleted when it loses the activation
    //! [customWrapTextToolTip]
    tip->hide();
    return tip;
}
