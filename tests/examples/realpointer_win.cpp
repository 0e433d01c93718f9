#include "realpointer.h"

#include <QtTest/QTest>

#include <qt_windows.h>

#include <vector>

namespace {

constexpr int kStepMs = 40;
constexpr int kPressMs = 300; // until the press has gone the way to the window manager
constexpr int kSteps = 6;

void moveTo(QPoint point)
{
    SetCursorPos(point.x(), point.y());
    QTest::qWait(kStepMs);
}

void sendButton(DWORD flag)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flag;
    SendInput(1, &input, sizeof(input));
    QTest::qWait(kStepMs);
}

WORD code(const QString &key)
{
    if (key.size() > 1 && key.startsWith(QLatin1Char('F')))
        return WORD(VK_F1 + key.mid(1).toInt() - 1);
    if (key == QLatin1String("Ctrl"))
        return VK_CONTROL;
    if (key == QLatin1String("Shift"))
        return VK_SHIFT;
    if (key == QLatin1String("Return"))
        return VK_RETURN;
    if (key == QLatin1String("Escape"))
        return VK_ESCAPE;
    if (key == QLatin1String("Right"))
        return VK_RIGHT;
    if (key == QLatin1String("space"))
        return VK_SPACE;
    return VK_TAB;
}

void sendKey(const QString &key, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code(key);
    input.ki.wScan = WORD(MapVirtualKeyW(input.ki.wVk, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (key == QLatin1String("Right") ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof(input));
    QTest::qWait(kStepMs);
}

} // namespace

void RealPointer::click(QPoint point)
{
    moveTo(point);
    sendButton(MOUSEEVENTF_LEFTDOWN);
    sendButton(MOUSEEVENTF_LEFTUP);
}

void RealPointer::drag(QPoint from, QPoint to)
{
    moveTo(from);
    sendButton(MOUSEEVENTF_LEFTDOWN);
    QTest::qWait(kPressMs);
    for (int step = 1; step <= kSteps; ++step)
        moveTo(from + (to - from) * step / kSteps);
    sendButton(MOUSEEVENTF_LEFTUP);
}

void RealPointer::key(const QString &combination)
{
    const QStringList keys = combination.split(QLatin1Char('+'));
    for (const QString &key : keys)
        sendKey(key, 0);
    for (auto key = keys.crbegin(); key != keys.crend(); ++key)
        sendKey(*key, KEYEVENTF_KEYUP);
}
