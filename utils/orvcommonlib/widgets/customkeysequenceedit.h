#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtWidgets/QKeySequenceEdit>

class QLineEdit;

/// An editor for one key combination, such as the shortcut of a hotkey, with a placeholder and access to the
/// look of its inner line edit.
///
/// \image html class-customkeysequenceedit.png
///
/// Unlike its base it takes a single chord only: each key press replaces what was there and ends the editing
/// at once. Backspace clears it and shows the placeholder again.
///
/// A modifier that is pressed alone changes nothing, unlike in the base, so that Shift+Tab leads away from a chord
/// without clearing it; the signals come as for every key, with the chord that is there.
///
/// Signals are those of QKeySequenceEdit. A key other than Backspace emits `keySequenceChanged()` with the
/// chord, whether it is a new one or not (a chord typed over another one is preceded by the base's own
/// `keySequenceChanged()` with an empty sequence); then every key emits `editingFinished()`.
///
/// GUI thread only.
///
/// Any key is a chord, also Escape or a letter without a modifier; whoever makes a hotkey of it has to look at it
/// first, at `editingFinished()`, as \ref guide_hotkeys shows. A modifier that is pressed alone ends the editing as
/// well, with the chord that was there before, or with none.
///
/// \par When to use it
/// To let the user choose one combination. A QKeySequenceEdit takes up to four, and waits a second for each.
///
/// \par Example
/// \snippet text.cpp CustomKeySequenceEdit
///
/// \since 1.0
/// \sa QHotkey, QKeySequenceEdit, \ref guide_hotkeys
/// \ingroup text
class ORVCOMMONLIB_EXPORT CustomKeySequenceEdit : public QKeySequenceEdit
{
    Q_OBJECT
    /// The placeholder that shows now.
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    /// The size of the inner line edit: the fixed one, or the present one where none was set.
    Q_PROPERTY(QSize editSize READ editSize WRITE setEditSize)
    /// Whether the inner line edit has no context menu. Writing false changes nothing.
    Q_PROPERTY(bool noContextMenu READ noContextMenu WRITE setNoContextMenu)

public:
    /// \param parent the owner; may be null
    /// \param placeholder what an empty editor shows
    explicit CustomKeySequenceEdit(QWidget *parent = nullptr, QString placeholder = QString());
    /// \param sequence the sequence to begin with
    /// \param parent the owner; may be null
    /// \param placeholder what an empty editor shows
    CustomKeySequenceEdit(const QKeySequence &sequence, QWidget *parent, QString placeholder);
    ~CustomKeySequenceEdit() override;

    /// The base emits `keySequenceChanged()` when the sequence is a different one.
    /// \param sequence the new sequence; an empty one brings the constructor's placeholder back
    void setKeySequence(const QKeySequence &sequence);

    /// \param text the placeholder that shows now. The constructor's one stays stored and returns with the
    ///        next clearing.
    void setPlaceHolderText(const QString &text);
    /// The same as setPlaceHolderText().
    /// \param text the placeholder that shows now
    void setPlaceholderText(const QString &text) { setPlaceHolderText(text); }
    /// \return the placeholder that shows now
    QString placeholderText() const;

    /// \param size the fixed size of the inner line edit, in device-independent pixels
    void setEditSize(QSize size);
    /// \return the present size of the inner line edit
    QSize editSize() const;

    /// Renames the inner line edit, for style sheets to select on. The other setters go on finding it.
    /// \param name an object name of the client's own
    void setCustomObjectName(const QString &name);

    /// \param noMenu true takes the context menu from the inner line edit; false does nothing, it does not
    ///        bring the menu back
    void setNoContextMenu(bool noMenu);
    /// \return whether the inner line edit has no context menu
    bool noContextMenu() const;

public Q_SLOTS:
    /// Clears the sequence and shows the constructor's placeholder.
    void clear();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(CustomKeySequenceEdit)

    QLineEdit *innerLineEdit() const;
    void keepFirstChord();

    QString m_placeholder;
    QString m_customObjectName;
};
