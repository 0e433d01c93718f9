#include "tipsdlgwithcheckbox.h"

#include "accessiblecontent.h"
#include "accessiblenotification.h"
#include "dialogbuttons.h"
#include "looksheets.h"
#include "modalrun.h"
#include "styledlabel.h"

#include <QtCore/QEvent>
#include <QtCore/QMargins>
#include <QtCore/QPointer>
#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char kTitleStyle[] = "QLabel \n{ \n background: transparent; font-size: 16px;\n font-weight: "
                               "Medium; \n color: @titleText; \n}";
constexpr char kCloseButtonStyle[] = "QPushButton {background: transparent;"
                                     "border-image:url(:/surface/resources/surface/common/close.png);}\n"
                                     "QPushButton:hover {background: transparent;"
                                     "border-image:url(:/surface/resources/surface/common/close_hover.png);}";
constexpr char kContentStyle[] =
    "QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n line-height:30px; \n"
    " color: @tipsText; \nqproperty-wordWrap: true;\ntext-align: left; \n}";
constexpr char kLineStyle[] =
    "QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n"
    " color: @tipsText; \nqproperty-wordWrap: true;\ntext-align: left; \n}";
constexpr char kCheckboxStyle[] =
    "QCheckBox \n{ \n color:@checkBoxText;\n font-size:14px;\n}\n"
    "QCheckBox::indicator \n{ \n width:18px;\n height:18px;\n}\n"
    "QCheckBox::indicator:unchecked \n{ \n border-image:url(:/resources/common_icons/uncheck.png);\n}\n"
    "QCheckBox::indicator:checked \n{ \n border-image:url(:/resources/common_icons/check.png);\n}";
constexpr char kConfirmButtonStyle[] =
    "QPushButton \n{ \n background-color:@primaryGround;\n border-radius:4px;\n font-size: 14px;\n "
    "color:@primaryText;\n"
    " padding-left: 10px;\n padding-right:10px;\n}\n"
    "QPushButton:hover \n{ \n background-color:@primaryHover;\n border-radius:4px;\n font-size: 14px;\n"
    " color:@primaryText;\n padding-left: 10px;\n padding-right:10px;\n}\n"
    "QPushButton:pressed \n{ \n background-color:@primaryPressed;\n border-radius:4px;\n font-size: 14px;\n"
    " color:@primaryText;\n padding-left: 10px;\n padding-right:10px;\n}";

// The background image: its slices, and the part of its border that lies outside the content.
constexpr int kSliceLeft = 17;
constexpr int kSliceTop = 14;
constexpr int kSliceRight = 19;
constexpr int kSliceBottom = 22;
constexpr int kOuterWidth = 20;
constexpr int kOuterHeight = 23;

constexpr int kMinimumHeight = 210;
constexpr int kMaximumHeight = 648;
constexpr QMargins kMargins(33, 30, 35, 34);
constexpr QSize kCloseButtonSize(20, 20);
constexpr QSize kConfirmButtonSize(88, 36);
constexpr int kContentGap = 8;
constexpr int kContentHeight = 78;

// The form with paragraphs.
constexpr int kTitleAreaHeight = 20;
constexpr int kLinesGap = 12;
constexpr int kLineCount = 4;
constexpr int kLineHeight = 26;
constexpr int kWarningIconGap = 3;
constexpr QSize kWarningIconSize(13, 14);
constexpr int kWarningHeight = 40;
constexpr int kBottomAreaHeight = 36;

QString backgroundImage()
{
    return QStringLiteral(":/surface/resources/surface/common/dialog_bg.png");
}

} // namespace

TipsDlgWithCheckbox::TipsDlgWithCheckbox(QWidget *parent, QSize size, QString title, QString content,
                                         QString checkboxText, QString buttonText)
    : BaseMoveDialogWithBackImage(backgroundImage(), kSliceLeft, kSliceTop, kSliceRight, kSliceBottom, true,
                                  true, parent)
{
    initFrame(size);
    initControls(title, content, checkboxText, buttonText);
}

TipsDlgWithCheckbox::TipsDlgWithCheckbox(QWidget *parent, QSize size, QString title, QVector<QString> lines,
                                         QString checkboxText, QString buttonText)
    : BaseMoveDialogWithBackImage(backgroundImage(), kSliceLeft, kSliceTop, kSliceRight, kSliceBottom, true,
                                  true, parent)
{
    initFrame(size);
    initControls(title, lines, checkboxText, buttonText);
}

TipsDlgWithCheckbox::~TipsDlgWithCheckbox()
{
    ModalRun::dialogDestroyed(this, 0);
}

void TipsDlgWithCheckbox::initFrame(QSize size)
{
    setWindowFlags(windowFlags() | Qt::Tool | Qt::WindowStaysOnTopHint);
    raise();
    setFixedSize(size.width() + kOuterWidth, size.height() + kOuterHeight);
    setMinimumHeight(kMinimumHeight);
    setMaximumHeight(kMaximumHeight);
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_DeleteOnClose);

    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setContentsMargins(kMargins);
    m_mainLayout->setSpacing(0);
}

void TipsDlgWithCheckbox::initControls(QString title, QString content, QString checkboxText,
                                       QString buttonText)
{
    auto *titleRow = new QHBoxLayout;
    m_mainLayout->addLayout(titleRow);
    fillTitleRow(titleRow, title);

    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, kContentGap, 0, 0);
    m_mainLayout->addLayout(column);
    m_contentLabel = createStyledLabel(this, content, Qt::AlignLeft, kContentStyle);
    m_contentLabel->setFixedHeight(kContentHeight);
    AccessibleContent::mark(m_contentLabel);
    column->addWidget(m_contentLabel);

    auto *bottomRow = new QHBoxLayout;
    fillBottomRow(bottomRow, checkboxText, buttonText);
    m_mainLayout->addStretch();
    m_mainLayout->addLayout(bottomRow);
}

void TipsDlgWithCheckbox::initControls(QString title, QVector<QString> lines, QString checkboxText,
                                       QString buttonText)
{
    auto *titleArea = new QWidget(this);
    titleArea->setFixedHeight(kTitleAreaHeight);
    auto *titleRow = new QHBoxLayout(titleArea);
    titleRow->setContentsMargins(0, 0, 0, 0);
    fillTitleRow(titleRow, title);
    m_mainLayout->addWidget(titleArea);

    auto *contentArea = new QWidget(this);
    auto *column = new QVBoxLayout(contentArea);
    column->setContentsMargins(0, kLinesGap, 0, 0);
    column->setSpacing(0);
    m_mainLayout->addWidget(contentArea);
    fillContentColumn(column, lines);

    auto *bottomArea = new QWidget(this);
    bottomArea->setFixedHeight(kBottomAreaHeight);
    auto *bottomRow = new QHBoxLayout(bottomArea);
    bottomRow->setContentsMargins(0, 0, 0, 0);
    fillBottomRow(bottomRow, checkboxText, buttonText);
    m_mainLayout->addStretch();
    m_mainLayout->addWidget(bottomArea);
}

void TipsDlgWithCheckbox::fillTitleRow(QBoxLayout *row, const QString &title)
{
    m_titleLabel = createStyledLabel(this, title, Qt::AlignLeft | Qt::AlignVCenter, kTitleStyle);
    m_titleLabel->setScaledContents(true);

    m_closeButton = DialogButtons::createCloseButton(this, kCloseButtonSize, kCloseButtonStyle);
    connect(m_closeButton, &QPushButton::clicked, this, &TipsDlgWithCheckbox::closeButtonClicked);
    connect(m_closeButton, &QPushButton::clicked, this, &TipsDlgWithCheckbox::closeMsgBox);
    m_closeButton->setAccessibleName(BaseMoveDialog::tr("Close"));
    m_closeButton->setVisible(true);

    row->addWidget(m_titleLabel);
    row->addStretch();
    row->addWidget(m_closeButton);
}

void TipsDlgWithCheckbox::fillContentColumn(QBoxLayout *column, const QVector<QString> &lines)
{
    if (lines.size() != kLineCount)
        return;
    for (int i = 0; i < kLineCount - 1; ++i) {
        auto *label = new QLabel(this);
        setContentLblStyle(label, lines.at(i));
        column->addWidget(label);
    }
    addWarningRow(column, lines.last());
}

void TipsDlgWithCheckbox::addWarningRow(QBoxLayout *column, const QString &text)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(0);

    auto *iconColumn = new QVBoxLayout;
    iconColumn->setContentsMargins(0, kWarningIconGap, 0, 0);
    auto *icon = new QLabel(this);
    icon->setFixedSize(kWarningIconSize);
    icon->setPixmap(QPixmap(QStringLiteral(":/surface/resources/surface/camerasetting/warning.png")));
    iconColumn->addWidget(icon);
    iconColumn->addStretch();
    row->addLayout(iconColumn);

    QLabel *label = createStyledLabel(this, text, Qt::AlignLeft, kLineStyle);
    label->setFixedHeight(kWarningHeight);
    AccessibleContent::mark(label);
    row->addWidget(label);

    column->addLayout(row);
}

void TipsDlgWithCheckbox::fillBottomRow(QBoxLayout *row, const QString &checkboxText,
                                        const QString &buttonText)
{
    m_checkbox = new QCheckBox(this);
    LookSheets::apply(m_checkbox, kCheckboxStyle);
    m_checkbox->setText(checkboxText);
    m_checkbox->setCheckable(true);
    m_checkbox->setChecked(false);
    connect(m_checkbox, &QCheckBox::clicked, this, &TipsDlgWithCheckbox::checkboxClicked);

    m_confirmButton = DialogButtons::createActionButton(this, buttonText, kConfirmButtonStyle);
    m_confirmButton->setFixedSize(kConfirmButtonSize);
    connect(m_confirmButton, &QPushButton::clicked, this, &TipsDlgWithCheckbox::confirmButtonClicked);
    connect(m_confirmButton, &QPushButton::clicked, this, &TipsDlgWithCheckbox::sig_BtnClicked);

    row->addWidget(m_checkbox);
    row->addWidget(m_confirmButton);
}

void TipsDlgWithCheckbox::setContentLblStyle(QLabel *label, QString text)
{
    if (!label)
        return;
    AccessibleContent::mark(label);
    label->setFixedHeight(kLineHeight);
    label->setAlignment(Qt::AlignLeft);
    LookSheets::apply(label, kLineStyle);
    label->setText(text);
}

QString TipsDlgWithCheckbox::getCheckBoxStyle()
{
    return LookSheets::text(kCheckboxStyle);
}

void TipsDlgWithCheckbox::exec()
{
    ModalRun run(this, m_eventLoop);
    show();
    run.enterOwnLoop();
}

void TipsDlgWithCheckbox::forceToExit()
{
    exitEventLoop();
    close();
}

void TipsDlgWithCheckbox::setCheckboxState(bool checked)
{
    if (!m_checkbox)
        return;
    m_checkbox->setChecked(checked);
    m_checkboxState = checked;
}

QString TipsDlgWithCheckbox::title() const
{
    return m_titleLabel ? m_titleLabel->text() : QString();
}

void TipsDlgWithCheckbox::setTitle(QString title)
{
    if (m_titleLabel)
        m_titleLabel->setText(title);
    AccessibleNotification::nameChanged(this);
}

void TipsDlgWithCheckbox::setContent(QString content)
{
    if (!m_contentLabel)
        return;
    m_contentLabel->setText(content);
    AccessibleNotification::descriptionChanged(this);
}

void TipsDlgWithCheckbox::setVisible(bool visible)
{
    const QPointer<TipsDlgWithCheckbox> alive(this);
    BaseMoveDialogWithBackImage::setVisible(visible);
    if (alive && !visible)
        ModalRun::dialogHidden(this, m_eventLoop);
}

bool TipsDlgWithCheckbox::event(QEvent *event)
{
    const bool handled = BaseMoveDialogWithBackImage::event(event);
    if (event->type() == QEvent::HideToParent)
        ModalRun::dialogHidden(this, m_eventLoop);
    return handled;
}

void TipsDlgWithCheckbox::keyPressEvent(QKeyEvent *event)
{
    if (!m_keyboardActions || !DialogButtons::clickByKey(event, m_closeButton, m_confirmButton))
        BaseMoveDialogWithBackImage::keyPressEvent(event);
}

void TipsDlgWithCheckbox::showEvent(QShowEvent *event)
{
    if (m_keyboardActions)
        DialogButtons::takeKeys(this, event);
    BaseMoveDialogWithBackImage::showEvent(event);
}

void TipsDlgWithCheckbox::exitEventLoop()
{
    ModalRun::end(m_eventLoop);
}

void TipsDlgWithCheckbox::closeButtonClicked()
{
    exitEventLoop();
    close();
}

void TipsDlgWithCheckbox::confirmButtonClicked()
{
    const QPointer<TipsDlgWithCheckbox> alive(this);
    exitEventLoop();
    close();
    if (alive && m_checkboxState)
        Q_EMIT sig_checkboxStateChanged(true);
}
