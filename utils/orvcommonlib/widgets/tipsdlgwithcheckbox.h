#pragma once

#include "basemovedialogwithbackimage.h"
#include "orvcommonlib_global.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>

class QBoxLayout;
class QCheckBox;
class QEventLoop;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A modal tip that stays on top: a title, one paragraph or three and a warning, a checkbox such as "do not
/// show this again", and one button.
///
/// \image html dialog-tipsdlgwithcheckbox.png
///
/// It is shown with exec(), which blocks, or with show(). What the user did is told by signals. The dialog
/// deletes itself when it is closed: connect before showing it, and do not touch it afterwards. The images
/// under ":/surface/" and ":/resources/common_icons/" belong to the application; without them these parts
/// stay transparent. GUI thread only. Sizes are in device-independent pixels.
///
/// Not placed over its parent: call moveOver() before it is shown.
///
/// \par When to use it
/// For a tip that the user can switch off. A QMessageBox with QMessageBox::setCheckBox() is the stock one.
///
/// \par Example
/// \snippet dialogs.cpp TipsDlgWithCheckbox
///
/// \since 1.0
/// \sa BaseMoveDialog::moveOver(), \ref guide_dialogs
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT TipsDlgWithCheckbox : public BaseMoveDialogWithBackImage
{
    Q_OBJECT
    /// The text of the title label.
    Q_PROPERTY(QString title READ title)
    Q_DISABLE_COPY(TipsDlgWithCheckbox)

public:
    /// A tip of one wrapped paragraph.
    /// \param parent the owner; may be null
    /// \param size the size of the visible part; the border of the background image adds 20 pixels to the
    ///        width and 23 to the height. The width is fixed, the height is kept between 210 and 648.
    /// \param title the text above the paragraph
    /// \param content the paragraph
    /// \param checkboxText the text of the checkbox, which is not ticked at first
    /// \param buttonText the text of the button
    TipsDlgWithCheckbox(QWidget *parent, QSize size, QString title, QString content, QString checkboxText,
                        QString buttonText);
    /// A tip of three paragraphs and a warning. What is not explained here is as in the first form.
    /// \param parent,size the owner and the size of the visible part
    /// \param title the text above the paragraphs
    /// \param lines the three paragraphs and the warning; any other number than four leaves the content empty
    /// \param checkboxText,buttonText the texts of the checkbox and the button
    TipsDlgWithCheckbox(QWidget *parent, QSize size, QString title, QVector<QString> lines,
                        QString checkboxText, QString buttonText);
    ~TipsDlgWithCheckbox() override;

    /// Shows the dialog and blocks until it is hidden in any way, the application quits or the dialog is
    /// destroyed.
    void exec();
    /// Ends a running exec() and closes the dialog; no signal is emitted.
    void forceToExit();
    /// Ticks or unticks the checkbox; no signal is emitted.
    /// \param checked whether it is ticked
    void setCheckboxState(bool checked);
    /// \return the text of the title label
    QString title() const;
    /// \param title the text above the paragraphs
    void setTitle(QString title);
    /// \param content the paragraph; a dialog with three of them ignores it
    void setContent(QString content);

    /// Lets Escape act as the close button, and Return and Enter as the other button, with the same actions and
    /// signals in the same order. Nothing happens while that button is hidden. Keys that the focused content uses
    /// itself do not come here, those with a modifier mean nothing, and one that is held down acts once.
    /// A dialog that is shown with this set becomes the active window, if the application is active; not so with
    /// Qt::WA_ShowWithoutActivating.
    /// \param enabled whether they do, false at first
    void setKeyboardActions(bool enabled) { m_keyboardActions = enabled; }
    /// \return what setKeyboardActions() has set
    bool keyboardActions() const { return m_keyboardActions; }

Q_SIGNALS:
    /// The close button was pressed; emitted after the dialog has been closed.
    void closeMsgBox();
    /// The button was pressed; emitted after the dialog has been closed.
    void sig_BtnClicked();
    /// The button was pressed while the checkbox was ticked; emitted after the dialog has been closed and
    /// before sig_BtnClicked().
    /// \param checked deliberately always true; nothing is emitted when the box is ticked or unticked
    void sig_checkboxStateChanged(bool checked);

protected:
    /// Hiding the native window ends a running exec(), too.
    /// \param event any event
    /// \return whether it was handled
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// Hiding ends a running exec().
    /// \param visible whether the dialog is to be shown
    void setVisible(bool visible) override;

private:
    void exitEventLoop();

    void initFrame(QSize size);
    void initControls(QString title, QString content, QString checkboxText, QString buttonText);
    void initControls(QString title, QVector<QString> lines, QString checkboxText, QString buttonText);
    void fillTitleRow(QBoxLayout *row, const QString &title);
    void fillContentColumn(QBoxLayout *column, const QVector<QString> &lines);
    void addWarningRow(QBoxLayout *column, const QString &text);
    void fillBottomRow(QBoxLayout *row, const QString &checkboxText, const QString &buttonText);
    void setContentLblStyle(QLabel *label, QString text);
    QString getCheckBoxStyle();

    void closeButtonClicked();
    void confirmButtonClicked();
    void checkboxClicked(bool checked) { m_checkboxState = checked; }

    QVBoxLayout *m_mainLayout = nullptr;
    QLabel *m_titleLabel = nullptr;
    QPushButton *m_closeButton = nullptr;
    QEventLoop *m_eventLoop = nullptr;
    QPushButton *m_confirmButton = nullptr;
    QCheckBox *m_checkbox = nullptr;
    QLabel *m_contentLabel = nullptr;
    bool m_checkboxState = false;
    bool m_keyboardActions = false;
};
