#include "orvupdatetipdlg.h"

#include "accessiblecontent.h"
#include "accessiblenotification.h"
#include "dialogbuttons.h"
#include "looksheets.h"
#include "styledlabel.h"

#include <QtCore/QPointer>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char kTitleStyle[] =
    "QLabel \n{ \n font-size: 16px;\n font-weight: DemiBold; \n color: @titleText; \n line-height: 20px; \n}";
constexpr char kCloseButtonStyle[] =
    "QPushButton {border-image:url(:/resources/common_icons/close.png);}\n"
    "QPushButton:hover {border-image:url(:/resources/common_icons/close_hover.png);}";
constexpr char kContentStyle[] =
    "QLabel \n{ \n font-size: 14px;\n font-weight: normal; \n color: @tipsText; \n line-height: 22px; \n"
    "qproperty-wordWrap: true;\ntext-align: left; \n}";
constexpr char kLinkStyle[] =
    "QLabel \n{ \n font-size: 16px;\n font-weight: normal; \n color: @linkText; \n line-height: 20px; \n}";
constexpr char kCancelButtonStyle[] =
    "QPushButton \n{ \n background-color:@cancelGround;\n border:1px solid @cancelBorder;\n "
    "border-radius:8px;\n"
    " font-size: 16px;\n color:@cancelText;\n line-height: 16px;\n font-weight: normal;\n}\n"
    "QPushButton:hover \n{ \n background-color:@cancelHover;\n font-size: 16px;\n color:@cancelText;\n}\n"
    "QPushButton:pressed \n{ \n background-color:@cancelPressed;\n font-size: 16px;\n color:@cancelText;\n}";
constexpr char kConfirmButtonStyle[] =
    "QPushButton \n{ \n background-color:@primaryGround;\n border-radius:8px;\n font-size: 16px;\n "
    "color:@primaryText;\n"
    " line-height: 16px;\n font-weight: DemiBold;\n}\n"
    "QPushButton:hover \n{ \n background-color:@primaryHover;\n border-radius:8px;\n font-size: 16px;\n"
    " color:@primaryText;\n}\n"
    "QPushButton:pressed \n{ \n background-color:@primaryPressed;\n font-size: 16px;\n "
    "color:@primaryText;\n}";

constexpr int kWidth = 400;
constexpr int kSideMargin = 24;

constexpr int kTitleAreaHeight = 56;
constexpr int kTitleAreaTop = 24;
constexpr int kTitleWidth = 380;
constexpr QSize kCloseButtonSize(20, 20);
constexpr int kCloseButtonTop = 4;

constexpr int kTextAreaHeight = 52;
constexpr int kCompactTextAreaHeight = 66;
constexpr int kLinkGap = 12;

constexpr int kButtonAreaGap = 24;
constexpr int kButtonAreaHeight = 60;
constexpr int kButtonAreaBottom = 24;
constexpr int kButtonSpacing = 12;
constexpr QSize kButtonSize(116, 36);
constexpr QSize kCompactButtonSize(97, 36);

// The widget at the top of a column of its own.
void addColumn(QHBoxLayout *row, QWidget *widget, int top)
{
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, top, 0, 0);
    column->setSpacing(0);
    column->addWidget(widget);
    column->addStretch();
    row->addLayout(column);
}

} // namespace

OrvUpdateTipDlg::OrvUpdateTipDlg(QSize size, QString backgroundImage, int border1, int border2, int border3,
                                 int border4, QWidget *parent, QString confirmText, QString cancelText,
                                 bool compactButtons, bool showCancelButton)
    : BaseMoveDialogWithBackImage(backgroundImage, border1, border2, border3, border4, true, true, parent)
    , m_compactButtons(compactButtons)
{
    setObjectName(QStringLiteral("OrvUpdateTipDlg"));
    setFixedSize(size);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(windowFlags() | Qt::Tool);
    setWindowModality(Qt::ApplicationModal);

    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setContentsMargins(border1, border2, border3, border4);
    m_mainLayout->setSpacing(0);
    m_mainLayout->addWidget(createTitleArea());
    m_mainLayout->addWidget(createTextArea());
    m_mainLayout->addSpacing(kButtonAreaGap);
    m_mainLayout->addWidget(createButtonArea(confirmText, cancelText, showCancelButton));
}

OrvUpdateTipDlg::~OrvUpdateTipDlg() = default;

QWidget *OrvUpdateTipDlg::createTitleArea()
{
    auto *area = new QWidget(this);
    area->setFixedSize(kWidth, kTitleAreaHeight);
    auto *row = new QHBoxLayout(area);
    row->setContentsMargins(kSideMargin, kTitleAreaTop, kSideMargin, 0);
    row->setSpacing(0);

    m_titleLabel = createStyledLabel(area, tr("Update Tips"), Qt::AlignLeft | Qt::AlignVCenter, kTitleStyle);
    m_titleLabel->setFixedWidth(kTitleWidth);
    addColumn(row, m_titleLabel, 0);

    m_closeButton = new QPushButton(area);
    m_closeButton->setFixedSize(kCloseButtonSize);
    m_closeButton->setCursor(Qt::PointingHandCursor);
    m_closeButton->setAccessibleName(BaseMoveDialog::tr("Close"));
    LookSheets::apply(m_closeButton, kCloseButtonStyle);
    connect(m_closeButton, &QPushButton::clicked, this,
            [this] { tellAndClose(&OrvUpdateTipDlg::sig_closeMsgBox); });
    addColumn(row, m_closeButton, kCloseButtonTop);
    return area;
}

QWidget *OrvUpdateTipDlg::createTextArea()
{
    auto *area = new QWidget(this);
    area->setFixedSize(kWidth, m_compactButtons ? kCompactTextAreaHeight : kTextAreaHeight);
    auto *column = new QVBoxLayout(area);
    column->setContentsMargins(kSideMargin, 0, kSideMargin, 0);
    column->setSpacing(0);

    m_contentLabel = createStyledLabel(area, tr("Update Tips"), Qt::AlignLeft, kContentStyle);
    AccessibleContent::mark(m_contentLabel);
    column->addWidget(m_contentLabel);
    column->addSpacing(kLinkGap);
    m_linkLabel = createStyledLabel(area, tr("Update Tips"), Qt::AlignLeft, kLinkStyle);
    m_linkLabel->setOpenExternalLinks(true);
    column->addWidget(m_linkLabel);
    return area;
}

QWidget *OrvUpdateTipDlg::createButtonArea(const QString &confirmText, const QString &cancelText,
                                           bool showCancelButton)
{
    auto *area = new QWidget(this);
    area->setFixedSize(kWidth, kButtonAreaHeight);
    auto *row = new QHBoxLayout(area);
    row->setContentsMargins(kSideMargin, 0, kSideMargin, kButtonAreaBottom);
    row->setSpacing(kButtonSpacing);
    row->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addStretch();

    const auto addButton = [&](const QString &text, const char *sheet, void (OrvUpdateTipDlg::*signal)()) {
        auto *button = new QPushButton(area);
        button->setFixedSize(m_compactButtons ? kCompactButtonSize : kButtonSize);
        LookSheets::apply(button, sheet);
        button->setText(text);
        connect(button, &QPushButton::clicked, this, [this, signal] { tellAndClose(signal); });
        row->addWidget(button);
        return button;
    };
    m_cancelButton = addButton(cancelText, kCancelButtonStyle, &OrvUpdateTipDlg::sig_cancelBtnClicked);
    if (!showCancelButton)
        m_cancelButton->hide();
    m_confirmButton = addButton(confirmText, kConfirmButtonStyle, &OrvUpdateTipDlg::sig_confirmBtnClicked);
    return area;
}

void OrvUpdateTipDlg::tellAndClose(void (OrvUpdateTipDlg::*signal)())
{
    const QPointer<OrvUpdateTipDlg> alive(this);
    Q_EMIT(this->*signal)();
    // A slot may have destroyed the dialog.
    if (alive)
        close();
}

QString OrvUpdateTipDlg::title() const
{
    return m_titleLabel ? m_titleLabel->text() : QString();
}

void OrvUpdateTipDlg::setTitle(QString title)
{
    if (m_titleLabel)
        m_titleLabel->setText(title);
    AccessibleNotification::nameChanged(this);
}

void OrvUpdateTipDlg::setContentTips(QString content)
{
    if (!m_contentLabel)
        return;
    m_contentLabel->setText(content);
    AccessibleNotification::descriptionChanged(this);
}

void OrvUpdateTipDlg::setNewVersionLink(QString link)
{
    if (m_linkLabel)
        m_linkLabel->setText(link);
}

void OrvUpdateTipDlg::keyPressEvent(QKeyEvent *event)
{
    if (!m_keyboardActions || !DialogButtons::clickByKey(event, m_closeButton, m_confirmButton))
        BaseMoveDialogWithBackImage::keyPressEvent(event);
}

void OrvUpdateTipDlg::showEvent(QShowEvent *event)
{
    if (m_keyboardActions)
        DialogButtons::takeKeys(this, event);
    BaseMoveDialogWithBackImage::showEvent(event);
}
