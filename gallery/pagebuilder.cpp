#include "pagebuilder.h"
#include "colorbutton.h"
#include "customizeiconbutton.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "flowlayout.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "propertysheet.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int kCardPadding = 20;
constexpr int kCardSpacing = 12;
constexpr int kExampleGap = 28;
constexpr int kExampleRowGap = 20;
constexpr int kCaptionGap = 8;
constexpr int kLabelWidth = 136;
constexpr int kLabelGap = 12; // behind a label that is wider than that
constexpr int kColumnGap = 32;
constexpr int kRowGap = 10;
constexpr int kButtonGap = 8;
constexpr int kControlHeight = 32;
constexpr int kTextEditHeight = 84;
constexpr int kControlsPerRow = 2;
constexpr int kCellsPerControl = 3; // label, control, gap

QLabel *newLabel(const QString &text, const char *role, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    setGalleryRole(label, role);
    return label;
}

QLabel *newParagraph(const QString &text, const char *role, QWidget *parent)
{
    QLabel *label = newLabel(text, role, parent);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    label->setOpenExternalLinks(true);
    return label;
}

/// Whether a user can do something with what assistive technology calls so.
bool isControl(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::PushButton:
    case QAccessible::ButtonDropDown:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::RadioButton:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
        return true;
    default:
        return false;
    }
}

/// Painted controls have no text of their own: what stands beside them is what they are called.
void nameControls(QWidget *widget, const QString &name)
{
    QWidgetList widgets = widget->findChildren<QWidget *>();
    widgets.prepend(widget);
    for (QWidget *one : qAsConst(widgets)) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(one);
        if (interface == nullptr || !interface->text(QAccessible::Name).isEmpty())
            continue;
        if (isControl(interface->role()) || one->focusPolicy() != Qt::NoFocus)
            one->setAccessibleName(name);
    }
}

/// The library's painted controls take no focus by themselves. In a text Tab goes on, so that it leads everywhere.
void openToKeyboard(QWidget *widget)
{
    QWidgetList widgets = widget->findChildren<QWidget *>();
    widgets.prepend(widget);
    for (QWidget *one : qAsConst(widgets)) {
        if (qobject_cast<HorizontalSlider *>(one) || qobject_cast<NewHorizontalSlider *>(one) ||
            qobject_cast<CustomSliderBarWidget *>(one) || qobject_cast<CustomShadowCombox *>(one) ||
            qobject_cast<CustomizeIconButton *>(one))
            one->setFocusPolicy(Qt::StrongFocus);
        else if (auto *plainEdit = qobject_cast<QPlainTextEdit *>(one))
            plainEdit->setTabChangesFocus(true);
        else if (auto *edit = qobject_cast<QTextEdit *>(one))
            edit->setTabChangesFocus(true);
    }
}

/// What every widget of a page gets that a user can do something with.
void prepare(QWidget *widget, const QString &name)
{
    openToKeyboard(widget);
    nameControls(widget, name);
}

QLineEdit *newLineEdit(const QString &text, std::function<void(const QString &)> changed, QWidget *parent)
{
    auto *edit = new QLineEdit(text, parent);
    edit->setCursorPosition(0);
    if (changed)
        QObject::connect(edit, &QLineEdit::textChanged, edit, changed);
    return edit;
}

} // namespace

void setGalleryRole(QWidget *widget, const char *role)
{
    widget->setProperty("galleryRole", QLatin1String(role));
    // A style may have looked at the widget already, and would keep to the rules that it found then.
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

PageBuilder::PageBuilder(QWidget *content, QWidget *window, QVector<PageShot> *shots)
    : m_content(content)
    , m_window(window)
    , m_shots(shots)
    , m_page(qobject_cast<QVBoxLayout *>(content->layout()))
{
}

void PageBuilder::include(const PageText &header)
{
    const QString text = QStringLiteral("#include \"%1\"").arg(header.string());
    QLabel *label = newLabel(text, "include", m_content);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_page->addWidget(label, 0, Qt::AlignLeft);
}

void PageBuilder::section(const PageText &title, const PageText &sentence)
{
    auto *frame = new QFrame(m_content);
    setGalleryRole(frame, "card");
    m_card = new QVBoxLayout(frame);
    m_card->setContentsMargins(kCardPadding, kCardPadding - 4, kCardPadding, kCardPadding);
    m_card->setSpacing(kCardSpacing);
    m_page->addWidget(frame);
    m_block = Block::None;
    m_title = title.string();
    if (!title.string().isEmpty())
        m_card->addWidget(newLabel(title.string(), "cardTitle", frame));
    if (!sentence.string().isEmpty())
        note(sentence);
}

QLabel *PageBuilder::note(const PageText &text)
{
    QVBoxLayout *layout = card();
    QLabel *label = newParagraph(text.string(), "note", layout->parentWidget());
    layout->addWidget(label);
    m_block = Block::None;
    return label;
}

void PageBuilder::example(QWidget *widget, const PageText &caption)
{
    if (m_block != Block::Examples) {
        auto *flow = new FlowLayout(kExampleGap, kExampleRowGap);
        card()->addLayout(flow);
        m_row = flow;
        m_block = Block::Examples;
    }
    prepare(widget, caption.string().isEmpty() ? m_title : caption.string());
    m_row->addWidget(captioned(widget, caption));
}

void PageBuilder::wideExample(QWidget *widget, const PageText &caption)
{
    QVBoxLayout *layout = card();
    prepare(widget, caption.string().isEmpty() ? m_title : caption.string());
    layout->addWidget(widget);
    if (!caption.string().isEmpty())
        layout->addWidget(newParagraph(caption.string(), "caption", layout->parentWidget()));
    m_block = Block::None;
}

QCheckBox *PageBuilder::checkBox(const PageText &label, bool checked, std::function<void(bool)> changed)
{
    auto *box = new QCheckBox(m_content);
    box->setChecked(checked);
    if (changed)
        QObject::connect(box, &QCheckBox::toggled, box, changed);
    addControl(label, box);
    return box;
}

QSpinBox *PageBuilder::spinBox(const PageText &label, int minimum, int maximum, int value,
                               std::function<void(int)> changed)
{
    auto *box = new QSpinBox(m_content);
    box->setRange(minimum, maximum);
    box->setValue(value);
    if (changed)
        QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), box, changed);
    addControl(label, box);
    return box;
}

QDoubleSpinBox *PageBuilder::doubleSpinBox(const PageText &label, double minimum, double maximum,
                                           double value, std::function<void(double)> changed)
{
    auto *box = new QDoubleSpinBox(m_content);
    box->setRange(minimum, maximum);
    box->setValue(value);
    if (changed)
        QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), box, changed);
    addControl(label, box);
    return box;
}

QLineEdit *PageBuilder::lineEdit(const PageText &label, const PageText &text,
                                 std::function<void(const QString &)> changed)
{
    QLineEdit *edit = newLineEdit(text.string(), std::move(changed), m_content);
    addControl(label, edit);
    return edit;
}

QLineEdit *PageBuilder::wideLineEdit(const PageText &label, const PageText &text,
                                     std::function<void(const QString &)> changed)
{
    QLineEdit *edit = newLineEdit(text.string(), std::move(changed), m_content);
    addControl(label, edit, true);
    return edit;
}

QPlainTextEdit *PageBuilder::textEdit(const PageText &label, const PageText &text,
                                      std::function<void(const QString &)> changed)
{
    QVBoxLayout *layout = card();
    layout->addWidget(newLabel(label.string(), "label", layout->parentWidget()));
    auto *edit = new QPlainTextEdit(text.string(), layout->parentWidget());
    prepare(edit, label.string());
    setGalleryRole(edit, "control");
    setGalleryRole(edit->verticalScrollBar(), "scroll");
    setGalleryRole(edit->horizontalScrollBar(), "scroll");
    edit->setFixedHeight(kTextEditHeight);
    if (changed)
        QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                         [edit, changed] { changed(edit->toPlainText()); });
    layout->addWidget(edit);
    m_block = Block::None;
    return edit;
}

ColorButton *PageBuilder::color(const PageText &label, const QColor &color,
                                std::function<void(const QColor &)> changed)
{
    auto *button = new ColorButton(color, m_content);
    if (changed)
        QObject::connect(button, &ColorButton::colorChanged, button, changed);
    addControl(label, button);
    return button;
}

QComboBox *PageBuilder::choice(const PageText &label, const QStringList &texts, int current,
                               std::function<void(int)> changed)
{
    auto *box = new QComboBox(m_content);
    box->addItems(texts);
    box->setCurrentIndex(current);
    if (changed)
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box, changed);
    addControl(label, box);
    return box;
}

void PageBuilder::control(const PageText &label, QWidget *widget)
{
    addLabelled(label, widget, false);
}

QPushButton *PageBuilder::button(const PageText &text, std::function<void()> clicked)
{
    return addButton(text, std::move(clicked), "button");
}

QPushButton *PageBuilder::primaryButton(const PageText &text, std::function<void()> clicked)
{
    return addButton(text, std::move(clicked), "primary");
}

void PageBuilder::properties(QWidget *widget)
{
    new PropertySheet(this, widget);
}

void PageBuilder::shot(const PageText &name, std::function<QWidget *()> show)
{
    m_shots->append({name.string(), std::move(show)});
}

QVBoxLayout *PageBuilder::card()
{
    if (m_card == nullptr)
        section({});
    return m_card;
}

QGridLayout *PageBuilder::grid()
{
    if (m_block != Block::Controls) {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(0);
        grid->setVerticalSpacing(kRowGap);
        for (int column = 0; column < kControlsPerRow; ++column) {
            grid->setColumnMinimumWidth(column * kCellsPerControl, kLabelWidth);
            grid->setColumnStretch(column * kCellsPerControl + 1, 1);
            if (column > 0)
                grid->setColumnMinimumWidth(column * kCellsPerControl - 1, kColumnGap);
        }
        card()->addLayout(grid);
        m_row = grid;
        m_block = Block::Controls;
        m_controlCount = 0;
    }
    return static_cast<QGridLayout *>(m_row);
}

QWidget *PageBuilder::captioned(QWidget *widget, const PageText &caption)
{
    if (caption.string().isEmpty())
        return widget;
    auto *holder = new QWidget(m_card->parentWidget());
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kCaptionGap);
    layout->addWidget(widget, 0, Qt::AlignHCenter);
    layout->addWidget(newLabel(caption.string(), "caption", holder), 0, Qt::AlignHCenter);
    return holder;
}

void PageBuilder::addControl(const PageText &label, QWidget *control, bool wide)
{
    setGalleryRole(control, "control");
    addLabelled(label, control, wide);
}

void PageBuilder::addLabelled(const PageText &label, QWidget *control, bool wide)
{
    QGridLayout *layout = grid();
    if (wide && m_controlCount % kControlsPerRow != 0)
        ++m_controlCount;
    const int row = m_controlCount / kControlsPerRow;
    const int column = m_controlCount % kControlsPerRow * kCellsPerControl;
    const int span = wide ? kControlsPerRow : 1;
    m_controlCount += span;
    control->setMinimumHeight(kControlHeight);
    control->setAccessibleName(label.string());
    prepare(control, label.string());
    QLabel *text = newLabel(label.string(), "label", m_card->parentWidget());
    text->setBuddy(control);
    text->setContentsMargins(0, 0, kLabelGap, 0);
    layout->addWidget(text, row, column);
    layout->addWidget(control, row, column + 1, 1, (span - 1) * kCellsPerControl + 1);
}

QPushButton *PageBuilder::addButton(const PageText &text, std::function<void()> clicked, const char *role)
{
    if (m_block != Block::Buttons) {
        auto *flow = new FlowLayout(kButtonGap, kButtonGap);
        card()->addLayout(flow);
        m_row = flow;
        m_block = Block::Buttons;
    }
    auto *button = new QPushButton(text.string(), m_card->parentWidget());
    setGalleryRole(button, role);
    button->setMinimumHeight(kControlHeight);
    button->setCursor(Qt::PointingHandCursor);
    QObject::connect(button, &QPushButton::clicked, button, [clicked] { clicked(); });
    m_row->addWidget(button);
    return button;
}
