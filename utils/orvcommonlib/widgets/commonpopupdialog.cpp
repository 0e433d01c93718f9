#include "commonpopupdialog.h"

#include "accessiblenotification.h"
#include "closebutton.h"
#include "dialogbuttons.h"
#include "modalrun.h"

#include <QtCore/QDebug>
#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char kExecName[] = "CommonPopupDialog::exec";

constexpr QSize kCloseButtonSize(18, 18);
constexpr int kTitleHeight = 22;
/// The title is deliberately wider than the title row leaves it: clients' style sheets rely on that width.
constexpr int kTitleWidthReserve = 18;
constexpr int kTitleLineHeight = 1;
constexpr int kTitleRowMargin = 5;
constexpr int kSpacingBeforeTitle = 20;
constexpr int kSpacingAfterCloseButton = 12;
constexpr int kSpacingAboveTitleRow = 5;

} // namespace

CommonPopupDialog::CommonPopupDialog(QWidget *parent, QString title, QSize size, bool showCloseButton,
                                     bool movable, bool transparentBody, bool modal,
                                     bool translucentBackground)
    : BaseMoveDialog(parent, movable, translucentBackground, true)
{
    setFixedSize(size);
    setModal(modal);
    buildBody(transparentBody);
    buildTitleRow(title, showCloseButton);
    buildTitleLine();
    setWindowTitle(QStringLiteral("CommonPopupDialog"));
}

CommonPopupDialog::~CommonPopupDialog()
{
    ModalRun::dialogDestroyed(this, m_result);
}

void CommonPopupDialog::buildBody(bool transparentBody)
{
    m_bodyWidget = new QWidget(this);
    m_bodyWidget->setObjectName(QStringLiteral("CommonPopupDialog"));
    if (transparentBody)
        m_bodyWidget->setStyleSheet(QStringLiteral("background-color:transparent"));
    m_bodyWidget->move(0, 0);
    m_bodyWidget->setFixedSize(size());
}

void CommonPopupDialog::buildTitleRow(const QString &title, bool showCloseButton)
{
    m_closeButton = new CloseButton(this);
    m_closeButton->setFixedSize(kCloseButtonSize);
    m_closeButton->setObjectName(QStringLiteral("PopupDialogCloseButton"));
    m_closeButton->setAccessibleName(BaseMoveDialog::tr("Close"));
    connect(m_closeButton, &QPushButton::clicked, this, &CommonPopupDialog::closeButtonClicked);
    m_closeButton->setVisible(showCloseButton);

    m_titleLabel = new QLabel(title, m_bodyWidget);
    m_titleLabel->setObjectName(QStringLiteral("Font16LightLbl"));
    m_titleLabel->setFixedSize(width() - kTitleWidthReserve, kTitleHeight);
    m_titleLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    m_verticalLayout = new QVBoxLayout(m_bodyWidget);
    m_verticalLayout->setContentsMargins(0, 0, 0, 0);
    m_verticalLayout->setAlignment(Qt::AlignTop);

    auto *titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(kTitleRowMargin, kTitleRowMargin, kTitleRowMargin, kTitleRowMargin);
    titleRow->addSpacing(kSpacingBeforeTitle);
    titleRow->addWidget(m_titleLabel);
    titleRow->addStretch();
    titleRow->addWidget(m_closeButton);
    titleRow->addSpacing(kSpacingAfterCloseButton);

    m_verticalLayout->addSpacing(kSpacingAboveTitleRow);
    m_verticalLayout->addLayout(titleRow);
}

void CommonPopupDialog::buildTitleLine()
{
    m_titleLine = new QWidget(m_bodyWidget);
    m_titleLine->setObjectName(QStringLiteral("TitleBottomHLine"));
    m_titleLine->setFixedSize(width(), kTitleLineHeight);
    m_verticalLayout->addWidget(m_titleLine);
}

void CommonPopupDialog::show()
{
    QWidget::show();
}

void CommonPopupDialog::setModal(bool modal)
{
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
}

CommonPopupDialog::ExecResult CommonPopupDialog::exec()
{
    ModalRun run(this, m_eventLoop);
    show();
    qInfo() << "begin loop func:" << kExecName << ";line:" << __LINE__;
    run.enterOwnLoop();
    qInfo() << "end loop func:" << kExecName << ";line:" << __LINE__;
    return run.isDialogAlive() ? m_result : static_cast<ExecResult>(run.lastResult());
}

QString CommonPopupDialog::title() const
{
    return m_titleLabel ? m_titleLabel->text() : QString();
}

void CommonPopupDialog::setTitle(QString title)
{
    if (m_titleLabel)
        m_titleLabel->setText(title);
    AccessibleNotification::nameChanged(this);
}

void CommonPopupDialog::exitEventLoop()
{
    ModalRun::end(m_eventLoop);
}

bool CommonPopupDialog::event(QEvent *event)
{
    const bool handled = BaseMoveDialog::event(event);
    if (event->type() == QEvent::HideToParent)
        ModalRun::dialogHidden(this, m_eventLoop);
    return handled;
}

void CommonPopupDialog::keyPressEvent(QKeyEvent *event)
{
    if (!m_keyboardActions || !DialogButtons::clickByKey(event, m_closeButton, nullptr))
        BaseMoveDialog::keyPressEvent(event);
}

void CommonPopupDialog::showEvent(QShowEvent *event)
{
    if (m_keyboardActions)
        DialogButtons::takeKeys(this, event);
    BaseMoveDialog::showEvent(event);
}

void CommonPopupDialog::resizeEvent(QResizeEvent *event)
{
    reSize(event->size());
}

void CommonPopupDialog::setVisible(bool visible)
{
    const QPointer<CommonPopupDialog> alive(this);
    BaseMoveDialog::setVisible(visible);
    if (alive && !visible)
        ModalRun::dialogHidden(this, m_eventLoop);
}

void CommonPopupDialog::hideTitleLine()
{
    if (m_titleLine)
        m_titleLine->hide();
}

void CommonPopupDialog::reSize(QSize size)
{
    setFixedSize(size);
    if (m_bodyWidget)
        m_bodyWidget->setFixedSize(size);
    if (m_titleLabel)
        m_titleLabel->setFixedSize(size.width() - kTitleWidthReserve, kTitleHeight);
    if (m_titleLine)
        m_titleLine->setFixedSize(size.width(), kTitleLineHeight);
}

void CommonPopupDialog::closeButtonClicked()
{
    const QPointer<CommonPopupDialog> alive(this);
    m_result = Closed;
    exitEventLoop();
    Q_EMIT sigClosed();
    // A slot may have destroyed the dialog.
    if (alive)
        close();
}
