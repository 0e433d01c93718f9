#include "bench.h"
#include "hotkeysystem.h"
#include "orvqtcompat.h"
#include "qhotkey.h"

#include <QAction> // of another module in each Qt
#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QCoreApplication>

#include <memory>
#include <vector>

namespace {

QKeySequence sequence()
{
    return {Qt::CTRL | Qt::SHIFT | Qt::Key_F10};
}

// What a program without the library would write: a filter that turns the system's message into a signal.
class StockFilter : public QAbstractNativeEventFilter
{
public:
    StockFilter() { qApp->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray &, void *, orvqt::NativeResult *) override
    {
        if (isPressed)
            pressed.hover();
        return false;
    }

    bool isPressed = false;
    QAction pressed;
};

// One press, from the system's message to the slots of so many hotkeys. In stock Qt's terms: a filter whose
// signal is connected, queued, to the signals of so many objects, each of which has a slot.
void measurePress(Bench &bench, int count)
{
    int calls = 0;
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    StockFilter filter;
    std::vector<std::unique_ptr<QAction>> targets;
    for (int index = 0; index < count; ++index) {
        hotkeys.push_back(std::make_unique<QHotkey>(sequence(), true));
        QObject::connect(hotkeys.back().get(), &QHotkey::activated, qApp, [&] { ++calls; });
        targets.push_back(std::make_unique<QAction>());
        QObject::connect(&filter.pressed, &QAction::hovered, targets.back().get(), &QAction::hovered,
                         Qt::QueuedConnection);
        QObject::connect(targets.back().get(), &QAction::hovered, qApp, [&] { ++calls; });
    }
    const QHotkey::NativeShortcut shortcut = hotkeys.front()->currentNativeShortcut();
    const QHotkey::NativeShortcut nobodys(shortcut.key, 0);
    bench.compare(
        QStringLiteral("one press for %1 hotkeys / a filter and queued signals").arg(count),
        [&] {
            HotkeySystem::press(shortcut);
            QCoreApplication::sendPostedEvents();
        },
        [&] {
            filter.isPressed = true;
            HotkeySystem::press(nobodys);
            filter.isPressed = false;
            QCoreApplication::sendPostedEvents();
        });
    Bench::keep(calls);
}

const BenchGroup group("hotkeys", [](Bench &bench) {
    QHotkey hotkey(sequence(), true);
    if (!hotkey.isRegistered()) {
        bench.note(QStringLiteral("this system has no hotkeys, or somebody holds Ctrl+Shift+F10"));
        return;
    }
    const QHotkey::NativeShortcut shortcut = hotkey.currentNativeShortcut();
    hotkey.setRegistered(false);
    for (const int count : {1, 10, 1000})
        measurePress(bench, count);

    bench.compare(
        "register and unregister / the system's own calls",
        [&] {
            hotkey.setRegistered(true);
            hotkey.setRegistered(false);
        },
        [&] { HotkeySystem::registerAndRelease(shortcut); });
    const QHotkey holder(sequence(), true);
    bench.compare(
        "the same for a shortcut that another hotkey holds",
        [&] {
            hotkey.setRegistered(true);
            hotkey.setRegistered(false);
        },
        [&] { HotkeySystem::registerAndRelease(shortcut); });
});

} // namespace
