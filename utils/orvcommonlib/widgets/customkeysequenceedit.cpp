#include "customkeysequenceedit.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>

#include <utility>

namespace {

// The name that QKeySequenceEdit gives the line edit inside it.
const QLatin1String kInnerLineEditName("qt_keysequenceedit_lineedit");

bool isModifierAlone(int key)
{
    switch (key) {
    case Qt::Key_Control:
    case Qt::Key_Shift:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_unknown:
        return true;
    default:
        return false;
    }
}

} // namespace

CustomKeySequenceEdit::CustomKeySequenceEdit(QWidget *parent, QString placeholder)
    : QKeySequenceEdit(parent)
    , m_placeholder(std::move(placeholder))
{
    setPlaceHolderText(m_placeholder);
}

CustomKeySequenceEdit::CustomKeySequenceEdit(const QKeySequence &sequence, QWidget *parent,
                                             QString placeholder)
    : QKeySequenceEdit(sequence, parent)
    , m_placeholder(std::move(placeholder))
{
    setPlaceHolderText(m_placeholder);
}

CustomKeySequenceEdit::~CustomKeySequenceEdit() = default;

void CustomKeySequenceEdit::setKeySequence(const QKeySequence &sequence)
{
    // The sequence may be part of what a slot destroys: it is read before anything is emitted.
    const bool empty = sequence.isEmpty();
    const QPointer<CustomKeySequenceEdit> guard(this);
    QKeySequenceEdit::setKeySequence(sequence);
    if (guard && empty)
        setPlaceHolderText(m_placeholder);
}

void CustomKeySequenceEdit::setPlaceHolderText(const QString &text)
{
    if (QLineEdit *edit = innerLineEdit())
        edit->setPlaceholderText(text);
}

QString CustomKeySequenceEdit::placeholderText() const
{
    const QLineEdit *edit = innerLineEdit();
    return edit ? edit->placeholderText() : QString();
}

void CustomKeySequenceEdit::setEditSize(QSize size)
{
    if (QLineEdit *edit = innerLineEdit())
        edit->setFixedSize(size);
}

QSize CustomKeySequenceEdit::editSize() const
{
    const QLineEdit *edit = innerLineEdit();
    return edit ? edit->size() : QSize();
}

void CustomKeySequenceEdit::setCustomObjectName(const QString &name)
{
    QLineEdit *edit = innerLineEdit();
    if (!edit)
        return;
    edit->setObjectName(name);
    m_customObjectName = name;
}

void CustomKeySequenceEdit::setNoContextMenu(bool noMenu)
{
    QLineEdit *edit = innerLineEdit();
    if (edit && noMenu)
        edit->setContextMenuPolicy(Qt::NoContextMenu);
}

bool CustomKeySequenceEdit::noContextMenu() const
{
    const QLineEdit *edit = innerLineEdit();
    return edit && edit->contextMenuPolicy() == Qt::NoContextMenu;
}

void CustomKeySequenceEdit::clear()
{
    const QPointer<CustomKeySequenceEdit> guard(this);
    QKeySequenceEdit::clear();
    if (guard)
        setPlaceHolderText(m_placeholder);
}

void CustomKeySequenceEdit::keyPressEvent(QKeyEvent *event)
{
    const QPointer<CustomKeySequenceEdit> guard(this);
    if (event->key() == Qt::Key_Backspace) {
        clear();
    } else {
        // The base would clear what is there for what it then records nothing of.
        if (!isModifierAlone(event->key()))
            QKeySequenceEdit::keyPressEvent(event);
        if (guard)
            keepFirstChord();
    }
    if (guard)
        Q_EMIT editingFinished();
}

QLineEdit *CustomKeySequenceEdit::innerLineEdit() const
{
    if (auto *edit = findChild<QLineEdit *>(kInnerLineEditName))
        return edit;
    // An empty name would match any line edit.
    return m_customObjectName.isEmpty() ? nullptr : findChild<QLineEdit *>(m_customObjectName);
}

void CustomKeySequenceEdit::keepFirstChord()
{
    // The cut is made in the text, at the first comma: a combination with the comma key itself is cut as
    // well. Clients have stored what this yields, so it stays.
    const QString chord = keySequence().toString(QKeySequence::PortableText).split(QLatin1Char(',')).first();
    const QKeySequence sequence = QKeySequence::fromString(chord, QKeySequence::PortableText);
    const QPointer<CustomKeySequenceEdit> guard(this);
    setKeySequence(sequence);
    if (guard)
        Q_EMIT keySequenceChanged(sequence);
}
