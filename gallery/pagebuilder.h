#pragma once

#include "gallerypage.h"
#include "reporting.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QColor>

#include <functional>

class ColorButton;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QVBoxLayout;
class QWidget;

/// A text of a page, from a UTF-8 literal or from a QString.
class PageText
{
public:
    PageText() = default;
    PageText(const char *utf8)
        : m_text(QString::fromUtf8(utf8))
    {
    }
    PageText(const QString &text)
        : m_text(text)
    {
    }
    const QString &string() const { return m_text; }

private:
    QString m_text;
};

/// A picture that --shots takes beside the page's own: of a dialog, a popup, a tooltip.
struct PageShot
{
    QString name;                    ///< of the file, without its suffix
    std::function<QWidget *()> show; ///< see PageBuilder::shot()
};

/// Fills a page of the gallery, from top to bottom. A page is one file, gallery/pages/<class in lower
/// case>.cpp:
///
///     #include "pagebuilder.h"
///     #include "custompicturebtn.h"
///
///     #include <QtWidgets/QCheckBox>
///
///     namespace {
///
///     void build(PageBuilder &page)
///     {
///         page.include("custompicturebtn.h");
///
///         page.section("States", "Point at a button and press it.");
///         auto *button = new CustomPictureBtn(page.widget());
///         page.example(button, "as constructed");
///         reportSignal(button, &CustomPictureBtn::signalClicked, "signalClicked");
///
///         page.section("Setters");
///         page.checkBox("Enabled", true, [button](bool on) { button->setEnabled(on); });
///         page.spinBox("Width", 20, 200, 80, [button](int width) { button->setFixedWidth(width); });
///         page.button("Click it", [button] { report("clicked by the page"); button->click(); });
///     }
///
///     const GalleryPage &page = GalleryPage::add(
///         GalleryFamily::Buttons, "CustomPictureBtn",
///         "A button of one picture and one text, drawn from rectangles that the client sets.", build);
///
///     } // namespace
///
/// A page is made of cards, one per section(). What is added next to each other and is of one kind stands
/// together: examples flow in rows, controls form a grid of two columns, buttons share a row. A control's
/// callback is called when the user (or the page) changes it, not at the start: the value given is the one
/// that the widget has already. The builder lives only during the call: callbacks capture the widgets they
/// need, and window() where a dialog needs its parent. A control's label is its name to assistive technology, too, and an
/// example without a name takes its caption's, or the card's title; painted controls get a focus policy. The style sheet of the gallery reaches none of the
/// library's widgets, but for the three object names that CommonPopupDialog leaves to its client's theme.
class PageBuilder
{
public:
    /// `content` is the widget that carries the page, `window` the gallery's main window.
    PageBuilder(QWidget *content, QWidget *window, QVector<PageShot> *shots);

    /// The gallery's main window, as parent of dialogs.
    QWidget *window() const { return m_window; }
    /// A parent for widgets that example() is going to place.
    QWidget *widget() const { return m_content; }

    /// The header that a client includes, shown below the page's sentence. Call it first.
    void include(const PageText &header);

    /// Starts a new card.
    void section(const PageText &title, const PageText &sentence = {});
    /// A paragraph of explanation; simple rich text is understood.
    QLabel *note(const PageText &text);

    /// Shows a widget at its own size, its caption below. It becomes a child of the page.
    void example(QWidget *widget, const PageText &caption = {});
    /// Shows a widget as wide as the card.
    void wideExample(QWidget *widget, const PageText &caption = {});

    QCheckBox *checkBox(const PageText &label, bool checked, std::function<void(bool)> changed = {});
    QSpinBox *spinBox(const PageText &label, int minimum, int maximum, int value,
                      std::function<void(int)> changed = {});
    QDoubleSpinBox *doubleSpinBox(const PageText &label, double minimum, double maximum, double value,
                                  std::function<void(double)> changed = {});
    QLineEdit *lineEdit(const PageText &label, const PageText &text,
                        std::function<void(const QString &)> changed = {});
    /// The same in a row of its own, for long texts.
    QLineEdit *wideLineEdit(const PageText &label, const PageText &text,
                            std::function<void(const QString &)> changed = {});
    /// Several lines of text, as wide as the card.
    QPlainTextEdit *textEdit(const PageText &label, const PageText &text,
                             std::function<void(const QString &)> changed = {});
    ColorButton *color(const PageText &label, const QColor &color,
                       std::function<void(const QColor &)> changed = {});
    /// One of several texts; the callback gets its index.
    QComboBox *choice(const PageText &label, const QStringList &texts, int current,
                      std::function<void(int)> changed = {});
    /// Any other widget in the place of a control.
    void control(const PageText &label, QWidget *widget);
    QPushButton *button(const PageText &text, std::function<void()> clicked);
    /// The button that does what the page is about: at most one in a card.
    QPushButton *primaryButton(const PageText &text, std::function<void()> clicked);

    /// A card with an editor for each property of the widget, which stands elsewhere on the page.
    void properties(QWidget *widget);

    /// Registers one more picture for --shots, NAME.png; dialogs are called "dialog-<class in lower case>",
    /// lists and tooltips "popup-<class>". `show` shows a window without blocking and returns it: it is
    /// grabbed over the page, at its place if it lies over the main window and centred otherwise, then closed
    /// (and deleted, unless closing did that or it is a child of a widget of the page). A page may register
    /// several.
    void shot(const PageText &name, std::function<QWidget *()> show);

private:
    enum class Block { None, Examples, Controls, Buttons };

    QVBoxLayout *card();
    QGridLayout *grid();
    QWidget *captioned(QWidget *widget, const PageText &caption);
    /// Adds one of the gallery's own controls.
    void addControl(const PageText &label, QWidget *control, bool wide = false);
    void addLabelled(const PageText &label, QWidget *control, bool wide);
    QPushButton *addButton(const PageText &text, std::function<void()> clicked, const char *role);

    QWidget *m_content;
    QWidget *m_window;
    QVector<PageShot> *m_shots;
    QVBoxLayout *m_page = nullptr;
    QVBoxLayout *m_card = nullptr;
    QString m_title;          ///< of the card
    QLayout *m_row = nullptr; ///< what the current block goes into
    Block m_block = Block::None;
    int m_controlCount = 0; ///< in the current grid
};

/// The role by which the gallery's own style sheet knows a widget of the gallery.
void setGalleryRole(QWidget *widget, const char *role);
