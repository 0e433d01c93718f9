#pragma once

#include "qhotkey.h"
#include "xclient.h"
#include "xpointer.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

// What the tests of hotkeys on a real server share.

using NativeShortcut = QHotkey::NativeShortcut;

constexpr int kNumLock = XCB_MOD_MASK_2;
const QVector<int> kNothing;
const QVector<int> kAllFourLocks{0, XCB_MOD_MASK_LOCK, kNumLock, XCB_MOD_MASK_LOCK | kNumLock};

/// Has a second client, which looks at the grabs.
class X11HotkeyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

protected:
    std::unique_ptr<XClient> m_other;
};

inline void X11HotkeyTest::initTestCase()
{
    XClient().setLayout(QStringLiteral("us"));
    XPointer::key(QStringLiteral("F12")); // the server tells of the keyboard that xdotool presses
}

inline void X11HotkeyTest::init()
{
    m_other = std::make_unique<XClient>();
    QCOMPARE(m_other->modifierState(), 0);
}

inline void X11HotkeyTest::cleanup()
{
    m_other.reset();
    QCoreApplication::processEvents();
}
