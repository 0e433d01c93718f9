#include "qhotkey.h"
#include "customkeysequenceedit.h"
#include "pagebuilder.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace {

constexpr int kEditorHeight = 32;

/// One hotkey with what the page shows of it: whether the system took it, and how often it was pressed.
class Counter : public QObject
{
public:
    Counter(QLabel *state, QLabel *count)
        : QObject(count)
        , m_hotkey(new QHotkey(this))
        , m_state(state)
        , m_count(count)
    {
        connect(m_hotkey, &QHotkey::activated, this,
                [this] { m_count->setText(QString::number(++m_activations)); });
        connect(m_hotkey, &QHotkey::registeredChanged, this, &Counter::showState);
        reportSignal(m_hotkey, &QHotkey::activated, "activated");
        reportSignal(m_hotkey, &QHotkey::registeredChanged, "registeredChanged");
        setGalleryRole(m_count, "number");
        m_count->setAlignment(Qt::AlignCenter);
        m_count->setText(QStringLiteral("0"));
        showState();
    }

    void registerAs(const QKeySequence &shortcut)
    {
        const bool accepted = m_hotkey->setShortcut(shortcut, true);
        report(QStringLiteral("setShortcut(%1, true) returned %2")
                   .arg(shortcut.toString(), accepted ? QStringLiteral("true") : QStringLiteral("false")));
        if (accepted && m_hotkey->isRegistered())
            showState();
        else
            show("refused", QStringLiteral("not accepted"));
    }

    void unregister()
    {
        const bool done = m_hotkey->setRegistered(false);
        report(done ? "setRegistered(false) returned true" : "setRegistered(false) returned false");
    }

    void reportNative() const
    {
        const QHotkey::NativeShortcut native = m_hotkey->currentNativeShortcut();
        report(QStringLiteral("currentNativeShortcut(): key 0x%1, modifier 0x%2, %3")
                   .arg(native.key, 0, 16)
                   .arg(native.modifier, 0, 16)
                   .arg(native.isValid() ? QStringLiteral("valid") : QStringLiteral("invalid")));
    }

private:
    void showState()
    {
        if (m_hotkey->isRegistered())
            show("accepted",
                 m_hotkey->shortcut().toString(QKeySequence::NativeText) + QStringLiteral(" is registered"));
        else
            show("idle", QStringLiteral("not registered"));
    }

    void show(const char *role, const QString &text)
    {
        setGalleryRole(m_state, role);
        m_state->setText(text);
    }

    QHotkey *m_hotkey;
    QLabel *m_state;
    QLabel *m_count;
    int m_activations = 0;
};

CustomKeySequenceEdit *newEditor(const char *sequence, QWidget *parent)
{
    auto *editor = new CustomKeySequenceEdit(QKeySequence(QLatin1String(sequence)), parent,
                                             QStringLiteral("press a combination"));
    auto *line = editor->findChild<QLineEdit *>();
    setGalleryRole(line, "control");
    line->setMinimumHeight(kEditorHeight);
    editor->setNoContextMenu(true);
    return editor;
}

void addHotkey(PageBuilder &page, const char *sequence, const QString &name)
{
    auto *state = new QLabel(page.widget());
    auto *count = new QLabel(page.widget());
    auto *counter = new Counter(state, count);
    CustomKeySequenceEdit *editor = newEditor(sequence, page.widget());
    page.example(count, "activations");
    page.control("Combination", editor);
    page.control("State", state);
    QPushButton *registers =
        page.primaryButton("Register", [counter, editor] { counter->registerAs(editor->keySequence()); });
    registers->setObjectName(QStringLiteral("register-") + name);
    page.button("Unregister", [counter] { counter->unregister(); });
    page.button("Native codes", [counter] { counter->reportNative(); });
}

void build(PageBuilder &page)
{
    page.include("qhotkey.h");
    page.section(
        "A hotkey",
        "Press a combination in the field, register it, and press it again while another program has "
        "the focus: the counter goes up.");
    addHotkey(page, "Ctrl+Shift+F9", QStringLiteral("first"));
    page.section("Another hotkey", "Several hotkeys may share one combination: all of them fire.");
    addHotkey(page, "Ctrl+Shift+F9", QStringLiteral("second"));
    page.section("When the system refuses",
                 "A combination that another program holds, or a key that the system does not know, is "
                 "refused: the setter "
                 "returns false, and a warning in the category <b>QHotkey</b> tells why.");
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Hotkeys, "QHotkey",
    "A keyboard shortcut of the whole desktop: it fires while any program has the focus.", build);

} // namespace
