#include "qhotkey.h"

#include "hotkeycallgate.h"
#include "orvqtcompat.h"
#include "qhotkey_p.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QThread>

Q_LOGGING_CATEGORY(logQHotkey, "QHotkey")

// QHotkey::NativeShortcut

QHotkey::NativeShortcut::NativeShortcut() = default;
QHotkey::NativeShortcut::NativeShortcut(const NativeShortcut &other) = default;
QHotkey::NativeShortcut::NativeShortcut(NativeShortcut &&other) noexcept = default;
QHotkey::NativeShortcut &QHotkey::NativeShortcut::operator=(const NativeShortcut &other) = default;
QHotkey::NativeShortcut &QHotkey::NativeShortcut::operator=(NativeShortcut &&other) noexcept = default;
QHotkey::NativeShortcut::~NativeShortcut() = default;

QHotkey::NativeShortcut::NativeShortcut(quint32 nativeKey, quint32 nativeModifier)
    : key(nativeKey)
    , modifier(nativeModifier)
    , valid(true)
{
}

bool QHotkey::NativeShortcut::isValid() const
{
    return valid;
}

bool QHotkey::NativeShortcut::operator==(const NativeShortcut &other) const
{
    return key == other.key && modifier == other.modifier && valid == other.valid;
}

bool QHotkey::NativeShortcut::operator!=(const NativeShortcut &other) const
{
    return !(*this == other);
}

uint qHash(const QHotkey::NativeShortcut &key)
{
    return key.key ^ key.modifier;
}

uint qHash(const QHotkey::NativeShortcut &key, orvqt::HashSeed /*seed*/)
{
    return qHash(key);
}

// QHotkey

QHotkey::QHotkey(QObject *parent)
    : QObject(parent)
{
}

QHotkey::QHotkey(const QKeySequence &shortcut, bool autoRegister, QObject *parent)
    : QHotkey(parent)
{
    setShortcut(shortcut, autoRegister);
}

QHotkey::QHotkey(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister, QObject *parent)
    : QHotkey(parent)
{
    setShortcut(keyCode, modifiers, autoRegister);
}

QHotkey::QHotkey(const NativeShortcut &shortcut, bool autoRegister, QObject *parent)
    : QHotkey(parent)
{
    setNativeShortcut(shortcut, autoRegister);
}

QHotkey::~QHotkey()
{
    removeFromRegistry();
    QHotkeyPrivate *registry = m_registered ? QHotkeyPrivate::instance() : nullptr;
    if (registry)
        registry->abandon(this);
}

QKeySequence QHotkey::shortcut() const
{
    if (m_keyCode == Qt::Key_unknown)
        return {};
    return {static_cast<int>(m_keyCode) | static_cast<int>(m_modifiers)};
}

bool QHotkey::setRegistered(bool registered)
{
    if (m_registered == registered)
        return true;
    if (!registered)
        return removeFromRegistry();
    if (!m_nativeShortcut.isValid())
        return false;
    return addToRegistry();
}

bool QHotkey::setShortcut(const QKeySequence &shortcut, bool autoRegister)
{
    if (shortcut.isEmpty())
        return resetShortcut();
    if (shortcut.count() > 1) {
        qCWarning(logQHotkey) << "Keysequences with multiple shortcuts are not allowed! "
                                 "Only the first shortcut will be used!";
    }

    const uint combination = static_cast<uint>(orvqt::firstCombination(shortcut));
    const uint modifierMask = Qt::KeyboardModifierMask;
    return setShortcut(static_cast<Qt::Key>(combination & ~modifierMask),
                       Qt::KeyboardModifiers(QFlag(combination & modifierMask)), autoRegister);
}

bool QHotkey::setShortcut(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister)
{
    if (!releaseForChange(autoRegister))
        return false;

    if (keyCode == Qt::Key_unknown) {
        clearShortcut();
        return true;
    }

    m_keyCode = keyCode;
    m_modifiers = modifiers;
    QHotkeyPrivate *registry = QHotkeyPrivate::instance();
    m_nativeShortcut = registry ? registry->nativeShortcut(keyCode, modifiers) : NativeShortcut();
    if (!m_nativeShortcut.isValid()) {
        qCWarning(logQHotkey) << "Unable to map shortcut to native keys. Key:" << keyCode
                              << "Modifiers:" << modifiers;
        if (autoRegister && registry && !registry->hasSystem())
            registry->registerShortcut(m_nativeShortcut); // all that this does is to say why
        clearShortcut();
        return false;
    }
    return autoRegister ? addToRegistry() : true;
}

bool QHotkey::resetShortcut()
{
    if (!releaseForChange(true))
        return false;
    clearShortcut();
    return true;
}

bool QHotkey::setNativeShortcut(QHotkey::NativeShortcut nativeShortcut, bool autoRegister)
{
    if (!releaseForChange(autoRegister))
        return false;

    clearShortcut();
    if (!nativeShortcut.isValid())
        return true;
    m_nativeShortcut = nativeShortcut;
    return autoRegister ? addToRegistry() : true;
}

// A registered hotkey lets go of its shortcut before it takes another one, but only where the caller allows
// it: otherwise it would silently end up unregistered. A slot that this reaches may delete the hotkey or
// register it again.
bool QHotkey::releaseForChange(bool allowed)
{
    if (!m_registered)
        return true;
    const QPointer<QHotkey> self(this);
    return allowed && removeFromRegistry() && self && !m_registered;
}

bool QHotkey::addToRegistry()
{
    QHotkeyPrivate *registry = QHotkeyPrivate::instance();
    return registry && registry->addShortcut(this);
}

bool QHotkey::removeFromRegistry()
{
    QHotkeyPrivate *registry = m_registered ? QHotkeyPrivate::instance() : nullptr;
    return registry && registry->removeShortcut(this);
}

void QHotkey::clearShortcut()
{
    m_keyCode = Qt::Key_unknown;
    m_modifiers = Qt::NoModifier;
    m_nativeShortcut = NativeShortcut();
}

// QHotkeyPrivate

QHotkeyPrivate::QHotkeyPrivate()
{
    // What a static object's constructor makes is destroyed after the object: the destructor can still warn.
    logQHotkey();
    new HotkeyCallGate(this);
    catchUp();
}

QHotkeyPrivate::~QHotkeyPrivate()
{
    if (!m_shortcuts.isEmpty())
        qCWarning(logQHotkey) << "QHotkeyPrivate destroyed with registered shortcuts!";
    if (QCoreApplication::instance() && QCoreApplication::eventDispatcher())
        QCoreApplication::eventDispatcher()->removeNativeEventFilter(this);
}

QHotkey::NativeShortcut QHotkeyPrivate::nativeShortcut(Qt::Key keycode, Qt::KeyboardModifiers modifiers)
{
    QHotkey::NativeShortcut result;
    if (HotkeyCallGate::of(this)->call([&] { result = nativeShortcutInvoked(keycode, modifiers); }))
        return result;
    const bool isOwnThread = QThread::currentThread() == thread();
    qInfo() << "nativeShortcut--QMetaObject::invokeMethod --return false:--keycode:" << keycode
            << "-modifiers:" << modifiers
            << "--contype:" << (isOwnThread ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
    return {};
}

QHotkey::NativeShortcut QHotkeyPrivate::nativeShortcutInvoked(Qt::Key keycode,
                                                              Qt::KeyboardModifiers modifiers)
{
    catchUp();
    bool keyFound = false;
    bool modifiersFound = false;
    const quint32 key = nativeKeycode(keycode, keyFound);
    const quint32 mods = nativeModifiers(modifiers, modifiersFound);
    if (keyFound && modifiersFound)
        return {key, mods};

    qInfo() << "QHotkeyPrivate::nativeShortcutInvoked -- nativeKeycode return:" << keyFound
            << "--nativeModifiers return:" << modifiersFound;
    return {};
}

bool QHotkeyPrivate::addShortcut(QHotkey *hotkey)
{
    if (!hotkey || hotkey->m_registered)
        return false;

    if (!changeInOwnThread(&QHotkeyPrivate::addShortcutInvoked, hotkey))
        return false;
    Q_EMIT hotkey->registeredChanged(true);
    return true;
}

bool QHotkeyPrivate::addShortcutInvoked(QHotkey *hotkey)
{
    catchUp();
    const QHotkey::NativeShortcut shortcut = hotkey->m_nativeShortcut;
    const bool isHeld = m_shortcuts.contains(shortcut) && systemHolds(shortcut);
    if (!isHeld && !registerShortcut(shortcut))
        return false;
    m_shortcuts.insert(shortcut, hotkey);
    hotkey->m_registered = true;
    return true;
}

bool QHotkeyPrivate::removeShortcut(QHotkey *hotkey)
{
    if (!hotkey || !hotkey->m_registered)
        return false;

    const QPointer<QHotkey> survivor(hotkey);
    if (!changeInOwnThread(&QHotkeyPrivate::removeShortcutInvoked, hotkey))
        return false;
    if (survivor) // a slot that the removal has reached may have deleted it
        Q_EMIT survivor->registeredChanged(false);
    return true;
}

bool QHotkeyPrivate::removeShortcutInvoked(QHotkey *hotkey)
{
    catchUp();
    const QHotkey::NativeShortcut shortcut = hotkey->m_nativeShortcut;
    if (m_shortcuts.remove(shortcut, hotkey) == 0)
        return false;
    hotkey->m_registered = false;
    Q_EMIT hotkey->registeredChanged(
        true); // deliberately true: clients tell the two steps of a removal apart by it
    return m_shortcuts.contains(shortcut) || unregisterShortcut(shortcut);
}

void QHotkeyPrivate::activateShortcut(QHotkey::NativeShortcut shortcut)
{
    catchUp();
    static const QMetaMethod activated = QMetaMethod::fromSignal(&QHotkey::activated);
    // An event is posted to each of them and nobody's code runs: the table stays as it is.
    for (auto entry = m_shortcuts.constFind(shortcut); entry != m_shortcuts.cend() && entry.key() == shortcut;
         ++entry)
        activated.invoke(entry.value(), Qt::QueuedConnection);
}

bool QHotkeyPrivate::systemHolds(QHotkey::NativeShortcut /*shortcut*/)
{
    return true;
}

bool QHotkeyPrivate::changeInOwnThread(bool (QHotkeyPrivate::*change)(QHotkey *), QHotkey *hotkey)
{
    bool changed = false;
    HotkeyCallGate::of(this)->call([&] { changed = (this->*change)(hotkey); });
    return changed;
}

// A hotkey is destroyed in another thread while the registry's thread does not answer: should that thread
// ever run again, it must not find the dead hotkey in its table.
void QHotkeyPrivate::abandon(QHotkey *hotkey)
{
    const QHotkey::NativeShortcut shortcut = hotkey->m_nativeShortcut;
    HotkeyCallGate::of(this)->leaveWork([this, hotkey, shortcut] {
        if (m_shortcuts.remove(shortcut, hotkey) > 0 && !m_shortcuts.contains(shortcut))
            unregisterShortcut(shortcut);
    });
}

// Comes before everything that the registry's thread does with the table: forgets hotkeys that died
// meanwhile, and watches the events of the application that there is now.
void QHotkeyPrivate::catchUp()
{
    HotkeyCallGate *gate = HotkeyCallGate::of(this);
    gate->catchUp();
    QAbstractEventDispatcher *dispatcher = QCoreApplication::eventDispatcher();
    if (dispatcher && gate->meetsNewApplication())
        dispatcher->installNativeEventFilter(this);
}
