#pragma once

#include "basemovedialogwithbackimage.h"
#include "orvcommonlib_global.h"

#include <QtCore/QSize>
#include <QtCore/QString>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// Tells the user that a new version of the application exists: a title, a text, a line for a link, and two
/// buttons.
///
/// \image html dialog-orvupdatetipdlg.png
///
/// It decides nothing by itself: each button emits its signal and closes the dialog. It is
/// application-modal and shown with show(), which does not block. The dialog deletes itself when it is
/// closed: do not touch it afterwards. All three labels deliberately start with the translated text "Update
/// Tips", until their setters are called. The images ":/resources/common_icons/close.png" and
/// "close_hover.png" belong to the application, as the background image does; without them the close button
/// looks as the platform's style draws one. GUI thread only. Sizes are in device-independent pixels.
///
/// Not placed over its parent: call moveOver() before it is shown.
///
/// \par When to use it
/// To offer a new version with a link to what is new in it. For anything else with two buttons a QMessageBox is
/// enough.
///
/// \par Example
/// \snippet dialogs.cpp OrvUpdateTipDlg
///
/// \since 1.0
/// \sa BaseMoveDialog::moveOver(), \ref guide_dialogs
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT OrvUpdateTipDlg : public BaseMoveDialogWithBackImage
{
    Q_OBJECT
    /// The text of the title label.
    Q_PROPERTY(QString title READ title)
    Q_DISABLE_COPY(OrvUpdateTipDlg)

public:
    /// \param size the fixed size of the dialog; the contents are 400 pixels wide inside the border
    /// \param backgroundImage a file name or resource path of the nine-patch background; empty: a white
    ///        rounded rectangle
    /// \param border1,border2,border3,border4 the left, top, right and bottom borders of the image, which
    ///        the contents keep free
    /// \param parent the owner; may be null
    /// \param confirmText the text of the blue button
    /// \param cancelText the text of the white button
    /// \param compactButtons buttons of 97 pixels under a text area of 66, in place of 116 and 52
    /// \param showCancelButton false hides the white cancel button
    OrvUpdateTipDlg(QSize size, QString backgroundImage, int border1, int border2, int border3, int border4,
                    QWidget *parent, QString confirmText, QString cancelText, bool compactButtons,
                    bool showCancelButton);
    ~OrvUpdateTipDlg() override;

    /// \return the text of the title label
    QString title() const;
    /// \param title the text of the title row
    void setTitle(QString title);
    /// \param content the grey text, which wraps
    void setContentTips(QString content);
    /// \param link the blue line. An anchor in a rich text opens in the system's browser; no signal tells of
    ///        that.
    void setNewVersionLink(QString link);

    /// Lets Escape act as the close button, and Return and Enter as the blue button, with the same actions and
    /// signals in the same order. Nothing happens while that button is hidden. Keys that the focused content uses
    /// itself do not come here, those with a modifier mean nothing, and one that is held down acts once.
    /// A dialog that is shown with this set becomes the active window, if the application is active; not so with
    /// Qt::WA_ShowWithoutActivating.
    /// \param enabled whether they do, false at first
    void setKeyboardActions(bool enabled) { m_keyboardActions = enabled; }
    /// \return what setKeyboardActions() has set
    bool keyboardActions() const { return m_keyboardActions; }

Q_SIGNALS:
    /// The blue button was pressed. Emitted once per press, before the dialog is closed.
    void sig_confirmBtnClicked();
    /// The white button was pressed. Emitted once per press, before the dialog is closed.
    void sig_cancelBtnClicked();
    /// The close button was pressed. Emitted once per press, before the dialog is closed.
    void sig_closeMsgBox();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *createTitleArea();
    QWidget *createTextArea();
    QWidget *createButtonArea(const QString &confirmText, const QString &cancelText, bool showCancelButton);
    void tellAndClose(void (OrvUpdateTipDlg::*signal)());

    QLabel *m_titleLabel = nullptr;
    QLabel *m_contentLabel = nullptr;
    QLabel *m_linkLabel = nullptr;
    QPushButton *m_cancelButton = nullptr;
    QPushButton *m_confirmButton = nullptr;
    QVBoxLayout *m_mainLayout = nullptr;
    bool m_compactButtons = false;
    QPushButton *m_closeButton = nullptr;
    bool m_keyboardActions = false;
};
