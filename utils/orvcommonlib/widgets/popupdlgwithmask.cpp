#include "popupdlgwithmask.h"

#include "accessiblecontent.h"
#include "accessiblenotification.h"
#include "dialogbuttons.h"
#include "looksheets.h"
#include "modalrun.h"
#include "orvmaskctrl.h"
#include "styledlabel.h"

#include <QtCore/QDebug>
#include <QtCore/QEvent>
#include <QtCore/QEventLoop>
#include <QtCore/QMargins>
#include <QtCore/QTimer>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char kDialogStyle[] = "background-color:transparent;";
constexpr char kBackgroundStyle[] =
    "QLabel\n{\n  border-image: url(%1); \n  background-color: transparent; \n}";
/// The slices of the card, 16 of shadow and 8 of round corner, are twice as large as they are shown, for screens
/// with twice as many pixels.
constexpr char kCardStyle[] = "QLabel\n{\n  border-image: url(%1) 48 48 48 48 stretch stretch; \n"
                              "  border-width: 24px; \n  background-color: transparent; \n}";
constexpr char kTitleStyle[] =
    "QLabel \n{ \n background: transparent; font-size: 16px;\n font-weight: Medium; \n"
    " color: @messageTitle; \n}";
constexpr char kCloseButtonStyle[] =
    "QPushButton {background: transparent;"
    "border-image:url(:/noviceguide/resources/newui/noviceguide/closebtn.png);}\n"
    "QPushButton:hover {background: transparent;"
    "border-image:url(:/noviceguide/resources/newui/noviceguide/closebtn.png);}";
constexpr char kContentStyle[] =
    "QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n"
    " color: @messageText; \nqproperty-wordWrap: true;\ntext-align: left; \n}";
constexpr char kNoteStyle[] =
    "QLabel \n{ \n background: transparent; font-size: 13px;\n font-weight: Medium; \n"
    " color: @noteText; \n}";
/// The three states look the same on purpose.
constexpr char kConfirmButtonStyle[] =
    "QPushButton \n{ \n background-color:@confirmGround;\n border-radius:4px;\n font-size: 12px;\n "
    "font-weight: "
    "Medium;\n"
    " border:0px solid @confirmBorder;\n color:@confirmText;\n padding-left: 3px;\n padding-right:3px;\n}\n"
    "QPushButton:hover \n{ \n background-color:@confirmGround;\n border-radius:4px;\n font-size: 12px;\n"
    " font-weight: Medium;\n border:0px solid @confirmBorder;\n color:@confirmText;\n padding-left: 3px;\n"
    " padding-right:3px;\n}\n"
    "QPushButton:pressed \n{ \n background-color:@confirmGround;\n border-radius:4px;\n font-size: 12px;\n"
    " font-weight: Medium;\n border:0px solid @confirmBorder;\n color:@confirmText;\n padding-left: 3px;\n"
    " padding-right:3px;\n}";

constexpr int kPadding = 16;
constexpr int kTitleHeight = 22;
constexpr QSize kCloseButtonSize(16, 16);
constexpr int kContentGap = 12;
constexpr int kContentMinimumHeight = 20;
constexpr int kContentMaximumHeight = 40;
constexpr QSize kNoteSize(50, 22);
constexpr QSize kConfirmButtonSize(68, 24);

QString cardImage()
{
    return QStringLiteral(":/orvcommonlib/pictures/message_bg.png");
}

} // namespace

PopupDlgWithMask::PopupDlgWithMask(QString backgroundImage, QSize size, int marginLeft, int marginTop,
                                   int marginRight, int marginBottom, QString title, QString content,
                                   QString noteText, QString confirmText, bool useMask, bool deleteOnClose,
                                   bool dialogWindow, bool modal, QWidget *parent)
    : BaseMoveDialog(parent, false, true, dialogWindow)
    , m_useMask(useMask)
    , m_maskParent(parent)
{
    initFrame(backgroundImage, size, QMargins(marginLeft, marginTop, marginRight, marginBottom),
              deleteOnClose, modal);
    initControls(title, content, confirmText, noteText);
}

PopupDlgWithMask::PopupDlgWithMask(const PopupMessage &message, QWidget *parent)
    : BaseMoveDialog(parent, false, true, message.dialogWindow)
    , m_useMask(message.useMask)
    , m_maskParent(parent)
{
    initFrame(message.backgroundImage.isEmpty() ? cardImage() : message.backgroundImage, message.size,
              message.border, message.deleteOnClose, message.modal);
    const QString confirmText = message.confirmText.isEmpty() ? tr("OK") : message.confirmText;
    if (message.pages.isEmpty()) {
        initControls(message.title, message.content, confirmText, message.noteText);
        return;
    }
    for (const PopupPage &page : message.pages) {
        m_pageImages.append(page.image);
        m_pageTitles.append(page.title);
        m_pageContents.append(page.content);
    }
    initMultiPages(message.title, confirmText, message.noteText);
    initPageTimer();
}

PopupDlgWithMask::ExecResult PopupDlgWithMask::message(QWidget *window, const QString &title,
                                                       const QString &content, const QString &confirmText)
{
    PopupMessage message;
    message.title = title;
    message.content = content;
    message.confirmText = confirmText;
    QWidget *owner = window ? window->window() : nullptr;
    const QPointer<PopupDlgWithMask> dialog(new PopupDlgWithMask(message, owner));
    dialog->moveOver(owner);
    const ExecResult result = dialog->exec();
    if (!dialog)
        return NoResult;
    delete dialog;
    return result;
}

PopupDlgWithMask::~PopupDlgWithMask()
{
    ModalRun::dialogDestroyed(this, m_result);
    releaseMask();
    stopPageTimer();
}

void PopupDlgWithMask::initFrame(const QString &backgroundImage, QSize size, const QMargins &border,
                                 bool deleteOnClose, bool modal)
{
    setObjectName(QStringLiteral("popupdlgwithmask"));
    setFixedSize(size);
    setWindowFlags(windowFlags() | Qt::Tool);
    if (modal)
        setWindowModality(Qt::ApplicationModal);
    if (deleteOnClose)
        setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(QLatin1String(kDialogStyle));

    auto *background = new QLabel(this);
    background->setFixedSize(this->size());
    background->setGeometry(0, 0, width(), height());
    LookSheets::apply(background, backgroundImage == cardImage() ? kCardStyle : kBackgroundStyle,
                      {backgroundImage});

    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setContentsMargins(border + QMargins(kPadding, kPadding, kPadding, kPadding));
    m_mainLayout->setSpacing(0);
}

void PopupDlgWithMask::initControls(QString title, QString content, QString confirmText, QString noteText)
{
    addTitleRow(title);
    addContentColumn(content);
    addBottomRow(confirmText, noteText);
}

void PopupDlgWithMask::addTitleRow(const QString &title)
{
    auto *row = new QHBoxLayout;
    m_mainLayout->addLayout(row);

    m_titleLabel = createStyledLabel(this, title, Qt::AlignLeft | Qt::AlignVCenter, kTitleStyle);
    m_titleLabel->setScaledContents(true);
    m_titleLabel->setFixedHeight(kTitleHeight);

    m_closeButton = DialogButtons::createCloseButton(this, kCloseButtonSize, kCloseButtonStyle);
    connect(m_closeButton, &QPushButton::clicked, this, &PopupDlgWithMask::closeButtonClicked);
    connect(m_closeButton, &QPushButton::clicked, this, &PopupDlgWithMask::closeMsgBox);
    m_closeButton->setAccessibleName(BaseMoveDialog::tr("Close"));
    m_closeButton->setVisible(true);

    row->addWidget(m_titleLabel);
    row->addStretch();
    row->addWidget(m_closeButton);
}

void PopupDlgWithMask::addContentColumn(const QString &content)
{
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, kContentGap, 0, 0);
    column->setSpacing(0);
    m_mainLayout->addLayout(column);

    m_contentLabel = createStyledLabel(this, content, Qt::AlignLeft, kContentStyle);
    m_contentLabel->setMinimumHeight(kContentMinimumHeight);
    m_contentLabel->setMaximumHeight(kContentMaximumHeight);
    AccessibleContent::mark(m_contentLabel);
    column->addWidget(m_contentLabel);
}

void PopupDlgWithMask::addBottomRow(const QString &confirmText, const QString &noteText)
{
    auto *row = new QHBoxLayout;

    m_noteLabel = createStyledLabel(this, noteText, Qt::AlignLeft | Qt::AlignVCenter, kNoteStyle);
    m_noteLabel->setFixedSize(kNoteSize);
    m_noteLabel->setAttribute(Qt::WA_LayoutUsesWidgetRect);

    m_confirmButton = DialogButtons::createActionButton(this, confirmText, kConfirmButtonStyle);
    m_confirmButton->setFixedSize(kConfirmButtonSize);
    connect(m_confirmButton, &QPushButton::clicked, this, &PopupDlgWithMask::confirmButtonClicked);
    connect(m_confirmButton, &QPushButton::clicked, this, &PopupDlgWithMask::closeMsgBox);

    row->addWidget(m_noteLabel);
    row->addStretch();
    row->addWidget(m_confirmButton);

    m_mainLayout->addStretch();
    m_mainLayout->addLayout(row);
}

PopupDlgWithMask::ExecResult PopupDlgWithMask::exec()
{
    ModalRun run(this, m_eventLoop);
    if (present())
        run.enterOwnLoop();
    return run.isDialogAlive() ? m_result : static_cast<ExecResult>(run.lastResult());
}

PopupDlgWithMask::ExecResult PopupDlgWithMask::execWithPos(QPoint &pos)
{
    ModalRun run(this, m_eventLoop);
    if (present()) {
        move(pos.x(), pos.y());
        if (!m_eventLoop)
            m_eventLoop = new QEventLoop;
        run.enter(*m_eventLoop);
    }
    return run.isDialogAlive() ? m_result : static_cast<ExecResult>(run.lastResult());
}

/// Brings mask and dialog to the front; false when the dialog did not survive that.
bool PopupDlgWithMask::present()
{
    const QPointer<PopupDlgWithMask> alive(this);
    requestMask();
    if (alive)
        show(true);
    if (alive)
        raise();
    return alive;
}

void PopupDlgWithMask::show(bool)
{
    const QPointer<PopupDlgWithMask> alive(this);
    requestMask();
    if (alive)
        QWidget::show();
}

void PopupDlgWithMask::forceToExit()
{
    const QPointer<PopupDlgWithMask> alive(this);
    exitEventLoop();
    close();
    if (alive)
        stopPageTimer();
}

QString PopupDlgWithMask::title() const
{
    return m_titleLabel ? m_titleLabel->text() : QString();
}

void PopupDlgWithMask::setTitle(QString title)
{
    if (m_titleLabel)
        m_titleLabel->setText(title);
    AccessibleNotification::nameChanged(this);
}

void PopupDlgWithMask::setContent(QString content)
{
    if (!m_contentLabel)
        return;
    m_contentLabel->setText(content);
    AccessibleNotification::descriptionChanged(this);
}

void PopupDlgWithMask::setConfirmBtnText(QString text)
{
    if (m_confirmButton)
        m_confirmButton->setText(text);
}

void PopupDlgWithMask::setVisible(bool visible)
{
    const QPointer<PopupDlgWithMask> alive(this);
    BaseMoveDialog::setVisible(visible);
    if (alive && ModalRun::isHidden(this) != visible) // a handler may have had it otherwise
        followVisibility(visible);
}

/// Anything may happen while the mask shows or hides, which is therefore last.
void PopupDlgWithMask::followVisibility(bool visible)
{
    stopPageTimer();
    if (!visible) {
        ModalRun::dialogHidden(this, m_eventLoop);
        releaseMask();
    } else if (m_pageTimer && !ModalRun::isHidden(this)) {
        m_pageTimer->start();
    }
}

bool PopupDlgWithMask::event(QEvent *event)
{
    const bool handled = BaseMoveDialog::event(event);
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        followVisibility(event->type() == QEvent::ShowToParent);
    return handled;
}

void PopupDlgWithMask::keyPressEvent(QKeyEvent *event)
{
    if (!m_keyboardActions || !DialogButtons::clickByKey(event, m_closeButton, m_confirmButton))
        BaseMoveDialog::keyPressEvent(event);
}

void PopupDlgWithMask::showEvent(QShowEvent *event)
{
    if (m_keyboardActions)
        DialogButtons::takeKeys(this, event);
    BaseMoveDialog::showEvent(event);
}

void PopupDlgWithMask::exitEventLoop()
{
    ModalRun::end(m_eventLoop);
}

void PopupDlgWithMask::stopPageTimer()
{
    if (m_pageTimer && m_pageTimer->isActive())
        m_pageTimer->stop();
}

void PopupDlgWithMask::requestMask()
{
    OrvMaskCtrl *control = m_useMask ? OrvMaskCtrl::getInstance(m_maskParent) : nullptr;
    if (control)
        control->showMasking(this);
}

/// A controller that does not exist holds no dialog, and is not made now for a window that may be going.
void PopupDlgWithMask::releaseMask()
{
    if (m_useMask && OrvMaskCtrl::m_pInstance)
        OrvMaskCtrl::m_pInstance->hideMasking(this);
}

void PopupDlgWithMask::closeButtonClicked()
{
    qInfo() << "AAAAA--PopupDlgWithMask--close btn clicked";
    closeWithResult(Closed);
}

void PopupDlgWithMask::confirmButtonClicked()
{
    qInfo() << "AAAAA--PopupDlgWithMask--confirm btn clicked";
    closeWithResult(Confirmed);
    qInfo() << "AAAAA--PopupDlgWithMask--confirm btn clicked--end";
}

/// The result is stored last: handlers that run during the close still see the old one. The loop returns
/// only after them, so exec() reads the new one.
void PopupDlgWithMask::closeWithResult(ExecResult result)
{
    const QPointer<PopupDlgWithMask> alive(this);
    exitEventLoop();
    close();
    if (alive)
        m_result = result;
}
