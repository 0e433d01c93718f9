#pragma once

#include "basemovedialog.h"
#include "orvcommonlib_global.h"
#include "popupmessage.h"

#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>

class QEventLoop;
class QLabel;
class QMargins;
class QPushButton;
class QStackedWidget;
class QTimer;
class QVBoxLayout;

/// A message box on a background image: one message, or a sequence of pages, a short note and one confirm
/// button. While it is visible it can darken the main window with the mask of OrvMaskCtrl.
///
/// \image html dialog-popupdlgwithmask.png
///
/// One call is enough for a message over the middle of a window; whoever needs more than its defaults fills a
/// PopupMessage:
///
///     if (PopupDlgWithMask::message(window, tr("Delete?"), tr("This cannot be undone.")) ==
///         PopupDlgWithMask::Confirmed)
///         remove();
///
/// It is shown with show(bool), exec() or execWithPos(); QWidget::show() is hidden on purpose, as it would
/// leave the mask out. However it is hidden, and when it is destroyed, it lets go of the mask, also where
/// somebody else has asked for the mask in its name. The user cannot drag it. The image
/// ":/noviceguide/resources/newui/noviceguide/closebtn.png" of the close button belongs to the application,
/// as the background image does; without them these parts stay transparent. GUI thread only. Sizes are in
/// device-independent pixels.
///
/// Only message() places the dialog. One that is made with a constructor stands where the window system puts it,
/// unless moveOver() is called before it is shown, or execWithPos() shows it.
///
/// \par When to use it
/// To tell something that has to be confirmed, in the look of the application. For a question that may look like the
/// desktop's own a QMessageBox is enough; contents of your own go into a CommonPopupDialog.
///
/// \par Example
/// \snippet dialogs.cpp PopupDlgWithMask
///
/// \since 1.0
/// \sa PopupMessage, OrvMaskCtrl, \ref guide_dialogs, \ref guide_mask
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT PopupDlgWithMask : public BaseMoveDialog
{
    Q_OBJECT
    /// The text of the title label.
    Q_PROPERTY(QString title READ title)
    Q_DISABLE_COPY(PopupDlgWithMask)

public:
    /// What exec() and execWithPos() return. The numbers are fixed.
    enum ExecResult : qint32 {
        NoResult = -1, ///< no answer yet
        Confirmed = 0, ///< the confirm button
        Closed = 2     ///< the close button
    };

    /// A message box with one wrapped text of at most two lines.
    /// \param backgroundImage a file name or resource path; the image is stretched over the whole dialog, the
    ///        library's own card (see PopupMessage::backgroundImage) slice by slice. The
    ///        path becomes part of a style sheet, where one with a quote, a comma, a parenthesis, a percent
    ///        sign or a backslash does not work: no image is shown then.
    /// \param size the fixed size of the dialog, including the transparent border of the image
    /// \param marginLeft,marginTop,marginRight,marginBottom the widths of that transparent border; the
    ///        contents keep 16 pixels more
    /// \param title the text above the message
    /// \param content the message
    /// \param noteText a short text at the bottom left, such as "1/3"
    /// \param confirmText the text of the confirm button
    /// \param useMask darken the main window while the dialog is visible
    /// \param deleteOnClose the dialog deletes itself when it is closed; do not touch it after exec() has
    ///        returned
    /// \param dialogWindow kept for the base class; the window is a tool window either way
    /// \param modal block input to every other window of the application
    /// \param parent the owner, and the window to darken where no mask exists yet
    PopupDlgWithMask(QString backgroundImage, QSize size, int marginLeft, int marginTop, int marginRight,
                     int marginBottom, QString title, QString content, QString noteText, QString confirmText,
                     bool useMask, bool deleteOnClose, bool dialogWindow, bool modal, QWidget *parent);

    /// A message box with pages that turn by themselves every three seconds while it is visible.
    ///
    /// The three lists hold one entry for each page. Lists of unequal lengths give a dialog without pages.
    /// The lists are copied. What is not explained here is as in the first form.
    /// \param backgroundImage,size,marginLeft,marginTop,marginRight,marginBottom the ground and its border
    /// \param title the text above the pages
    /// \param pageImages the paths of the pictures, under the same restrictions as `backgroundImage`
    /// \param pageTitles the titles below the pictures
    /// \param pageContents a one-line text for each page
    /// \param noteText,confirmText the texts below the pages
    /// \param useMask,deleteOnClose,dialogWindow,modal how the dialog behaves
    /// \param parent the owner, and the window to darken where no mask exists yet
    PopupDlgWithMask(QString backgroundImage, QSize size, int marginLeft, int marginTop, int marginRight,
                     int marginBottom, QString title, QVector<QString> &pageImages,
                     QVector<QString> &pageTitles, QVector<QString> &pageContents, QString noteText,
                     QString confirmText, bool useMask, bool deleteOnClose, bool dialogWindow, bool modal,
                     QWidget *parent);

    /// A message box of either form: one with pages where the message has any.
    /// \param message everything about it
    /// \param parent the owner, and the window to darken where no mask exists yet
    explicit PopupDlgWithMask(const PopupMessage &message, QWidget *parent = nullptr);
    ~PopupDlgWithMask() override;

    /// Shows a message in the middle of a window, over the mask, and blocks until it is answered. It is made
    /// with the defaults of PopupMessage.
    /// \param window any widget of the window, which becomes its owner; null shows it in the middle of the
    ///        screen
    /// \param title the text above the message
    /// \param content the message, of at most two lines
    /// \param confirmText the text of the confirm button; empty for a translated "OK"
    /// \return as exec(), and NoResult when the window has died meanwhile
    static ExecResult message(QWidget *window, const QString &title, const QString &content,
                              const QString &confirmText = QString());

    /// Shows the dialog, and the mask if it uses one, and blocks until it is hidden in any way, the
    /// application quits or the dialog is destroyed.
    /// \return Confirmed or Closed after a press of that button. The result is deliberately not reset: a
    ///        run that ends in another way returns what the run before returned, NoResult if there was
    ///        none.
    /// \note An exec() inside a run of the same dialog takes over the recorded loop: only the innermost one
    ///        can then be ended through the dialog. The outer one ends when the dialog is destroyed or the
    ///        application quits.
    ExecResult exec();
    /// Like exec(), at a given position, to which the dialog moves once it is shown.
    /// \param pos the global position of the top-left corner; only read
    /// \return as exec()
    /// \note Inside a run of the same dialog it returns at once. Each loop is deliberately left to the
    ///        process when the run has ended; one that was ended by other means than the dialog is used
    ///        again.
    ExecResult execWithPos(QPoint &pos);
    /// Shows the mask, if the dialog uses one, and the dialog. The argument is deliberately without effect.
    virtual void show(bool);
    /// Ends a running exec() or execWithPos(), closes the dialog and stops turning pages. The result stays
    /// as it is.
    void forceToExit();

    /// \return the text of the title label
    QString title() const;
    /// \param title the text above the message or the pages
    void setTitle(QString title);
    /// \param content the message; a dialog with pages has none and ignores it
    void setContent(QString content);
    /// \param text the text of the confirm button
    void setConfirmBtnText(QString text);

    /// Lets Escape act as the close button, and Return and Enter as the confirm button, with the same actions and
    /// signals in the same order. Nothing happens while that button is hidden. Keys that the focused content uses
    /// itself do not come here, those with a modifier mean nothing, and one that is held down acts once.
    /// A dialog that is shown with this set becomes the active window, if the application is active; not so with
    /// Qt::WA_ShowWithoutActivating.
    /// \param enabled whether they do, false at first
    void setKeyboardActions(bool enabled) { m_keyboardActions = enabled; }
    /// \return what setKeyboardActions() has set
    bool keyboardActions() const { return m_keyboardActions; }

Q_SIGNALS:
    /// The close button or the confirm button was pressed; emitted once per press, after the dialog has
    /// been closed and the result stored, before exec() returns.
    void closeMsgBox();

protected:
    /// Hiding or showing the native window has the same effect as setVisible().
    /// \param event any event
    /// \return whether it was handled
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// Hiding releases the mask, ends a running exec() and stops the page timer; showing starts the page
    /// timer anew.
    /// \param visible whether the dialog is to be shown
    void setVisible(bool visible) override;

private Q_SLOTS:
    void slot_timerFunc();

private:
    void exitEventLoop();
    bool present();
    void followVisibility(bool visible);

    void initFrame(const QString &backgroundImage, QSize size, const QMargins &border, bool deleteOnClose,
                   bool modal);
    void initControls(QString title, QString content, QString confirmText, QString noteText);
    void addTitleRow(const QString &title);
    void addContentColumn(const QString &content);
    void addBottomRow(const QString &confirmText, const QString &noteText);
    void initMultiPages(QString title, QString confirmText, QString noteText);
    void initSubWidget(QWidget *page, QString image, QString pageTitle, QString pageContent, int pageNumber,
                       int pageCount);
    void initIndexWinget(QWidget *dots, int pageNumber, int pageCount);
    void initPageTimer();
    void stopPageTimer();

    void requestMask();
    void releaseMask();

    void closeButtonClicked();
    void confirmButtonClicked();
    void closeWithResult(ExecResult result);

    QVBoxLayout *m_mainLayout = nullptr;
    QEventLoop *m_eventLoop = nullptr;
    ExecResult m_result = NoResult;
    bool m_useMask = false;
    QPointer<QWidget> m_maskParent;
    QLabel *m_titleLabel = nullptr;
    QPushButton *m_closeButton = nullptr;
    QLabel *m_contentLabel = nullptr;
    QLabel *m_noteLabel = nullptr;
    QPushButton *m_confirmButton = nullptr;
    QVector<QString> m_pageImages;
    QVector<QString> m_pageTitles;
    QVector<QString> m_pageContents;
    QStackedWidget *m_pageStack = nullptr;
    QTimer *m_pageTimer = nullptr;
    int m_pageCount = 0;
    bool m_keyboardActions = false;
};
