#include "fuzzing.h"
#include "qhotkey/fakeregistry.h"

#include <QtCore/QCoreApplication>

#include <memory>

using namespace Fuzzing;

namespace {

constexpr int kHotkeys = 4;

// Presses that a hotkey has been told of, and what it has said of itself.
struct Listener
{
    std::unique_ptr<QHotkey> hotkey;
    int activated = 0;
};

QKeySequence anySequence(Input &input)
{
    constexpr int kKeys[] = {
        0, Qt::Key_A, Qt::Key_B, Qt::Key_F1, int(Qt::CTRL) | int(Qt::Key_A), int(Qt::ALT) | int(Qt::Key_B)};
    const int first = kKeys[input.byte() % std::size(kKeys)];
    return input.flag() ? QKeySequence(first, Qt::Key_C) : QKeySequence(first);
}

void makeHotkey(Listener *listener, Input &input)
{
    const bool registers = input.flag();
    listener->activated = 0;
    switch (input.byte() % 4) {
    case 0:
        listener->hotkey = std::make_unique<QHotkey>();
        break;
    case 1:
        listener->hotkey = std::make_unique<QHotkey>(anySequence(input), registers);
        break;
    case 2:
        listener->hotkey = std::make_unique<QHotkey>(Qt::Key(Qt::Key_A + input.byte() % 3),
                                                     Qt::KeyboardModifiers(Qt::ControlModifier), registers);
        break;
    default:
        listener->hotkey = std::make_unique<QHotkey>(QHotkey::NativeShortcut(input.byte() % 3, 1), registers);
        break;
    }
    QObject::connect(listener->hotkey.get(), &QHotkey::activated, [listener] { ++listener->activated; });
}

FakeRegistry *currentRegistry = nullptr;

// What must hold whatever came before: exactly the registered hotkeys hear of a press, each once.
void checkPress(FakeRegistry &registry, Listener (&listeners)[kHotkeys], QHotkey::NativeShortcut shortcut)
{
    int before[kHotkeys];
    bool hears[kHotkeys];
    for (int i = 0; i < kHotkeys; ++i) {
        const QHotkey *const hotkey = listeners[i].hotkey.get();
        before[i] = listeners[i].activated;
        hears[i] = hotkey && hotkey->isRegistered() && hotkey->currentNativeShortcut() == shortcut;
    }
    registry.press(shortcut);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    for (int i = 0; i < kHotkeys; ++i)
        check(listeners[i].activated - before[i] == int(hears[i]),
              "a press reaches others than the registered");
}

void change(FakeRegistry &registry, Listener (&listeners)[kHotkeys], Input &input)
{
    Listener &listener = listeners[input.byte() % kHotkeys];
    QHotkey *const hotkey = listener.hotkey.get();
    const quint8 action = input.byte() % 10;
    if (action == 0)
        listener.hotkey.reset();
    else if (action == 1 || !hotkey)
        makeHotkey(&listener, input);
    else if (action == 2)
        hotkey->setRegistered(input.flag());
    else if (action == 3)
        hotkey->setShortcut(anySequence(input), input.flag());
    else if (action == 4)
        hotkey->resetShortcut();
    else if (action == 5)
        hotkey->setNativeShortcut(QHotkey::NativeShortcut(input.byte() % 3, 1), input.flag());
    else if (action == 6)
        registry.agrees = input.flag();
    else if (action == 7)
        registry.releases = input.flag();
    else if (action == 8)
        registry.knowsKeys = input.flag();
    else
        checkPress(registry, listeners, hotkey->currentNativeShortcut());
}

// The system holds each shortcut of a registered hotkey, and none without one unless it has refused to let it go.
void checkSystem(const FakeRegistry &registry, const Listener (&listeners)[kHotkeys], bool alwaysReleased)
{
    QMap<QString, int> held;
    for (const QString &call : registry.calls) {
        if (call.startsWith(QLatin1String("register ")))
            held[call.mid(9)] += 1;
        else if (call.startsWith(QLatin1String("unregister ")))
            held[call.mid(11)] -= 1;
    }
    for (const Listener &listener : listeners) {
        const QHotkey *const hotkey = listener.hotkey.get();
        if (hotkey && hotkey->isRegistered())
            check(hotkey->currentNativeShortcut().isValid(), "registered without a shortcut");
    }
    if (!alwaysReleased)
        return;
    for (auto count = held.cbegin(); count != held.cend(); ++count)
        check(count.value() >= 0, "released what was not held");
}

void tryHotkeys(Input &input)
{
    FakeRegistry registry;
    currentRegistry = &registry;
    Listener listeners[kHotkeys];
    bool alwaysReleased = true;
    for (int steps = 0; !input.isEmpty() && steps < 200; ++steps) {
        change(registry, listeners, input);
        alwaysReleased = alwaysReleased && registry.releases;
        checkSystem(registry, listeners, alwaysReleased);
    }
    for (Listener &listener : listeners)
        listener.hotkey.reset();
    currentRegistry = nullptr;
}

const Target target("hotkey", tryHotkeys);

} // namespace

// The linker has the library call this in place of QHotkeyPrivate::instance().
QHotkeyPrivate *inventedRegistry() asm("__wrap__ZN15QHotkeyPrivate8instanceEv");
QHotkeyPrivate *inventedRegistry()
{
    return currentRegistry;
}
