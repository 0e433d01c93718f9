#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtWidgets/QKeySequenceEdit>

class QLineEdit;

/// An editor for one key combination, such as the shortcut of a hotkey, with a placeholder and access to the
/// look of its inner line edit.
///
/// Unlike its base it takes a single chord only: each key press replaces what was there and ends the editing
/// at once. Backspace clears it and shows the placeholder again.
///
/// Signals are those of QKeySequenceEdit. A key other than Backspace emits `keySequenceChanged()` with the
/// chord, whether it is a new one or not (a chord typed over another one is preceded by the base's own
/// `keySequenceChanged()` with an empty sequence); then every key emits `editingFinished()`.
///
/// GUI thread only.
class ORVCOMMONLIB_EXPORT CustomKeySequenceEdit : public QKeySequenceEdit
{
    Q_OBJECT

public:
    explicit CustomKeySequenceEdit(QWidget *parent = nullptr, QString placeholder = QString());
    CustomKeySequenceEdit(const QKeySequence &sequence, QWidget *parent, QString placeholder);
    ~CustomKeySequenceEdit() override;

    /// Sets the sequence; an empty one brings the constructor's placeholder back. `keySequenceChanged()` is
    /// emitted by the base, when the sequence is a different one.
    void setKeySequence(const QKeySequence &sequence);

    /// Sets the placeholder that shows now. The constructor's one stays stored and returns with the next
    /// clearing.
    void setPlaceHolderText(const QString &text);

    /// Fixes the size of the inner line edit, in device-independent pixels.
    void setEditSize(QSize size);

    /// Gives the inner line edit an object name of the client's own, for style sheets to select on. The other
    /// setters go on finding it by that name.
    void setCustomObjectName(const QString &name);

    /// True takes the context menu from the inner line edit; false does nothing, it does not bring the menu
    /// back.
    void setNoContextMenu(bool noMenu);

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
