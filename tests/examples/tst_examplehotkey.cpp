#include "client.h"
#include "realpointer.h"
#include "testmain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

/// The example of a hotkey while its user presses it.
class tst_ExampleHotkey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsPressesOfTheChosenKeys();
};

void tst_ExampleHotkey::countsPressesOfTheChosenKeys()
{
    const QString edit = QStringLiteral("CustomKeySequenceEdit/Hotkey");
    const auto label = [](const char *text) {
        return QStringLiteral("QLabel/") + QLatin1String(text);
    };
    Client example(QStringLiteral("hotkey"));
    example.start();
    QTRY_VERIFY_WITH_TIMEOUT(example.sees(label("Not pressed yet")), 60000);
    QTRY_VERIFY_WITH_TIMEOUT(example.hasFocus(edit), 20000);
    RealPointer::click(example.place(edit).center());
    example.forget();
    QTRY_VERIFY_WITH_TIMEOUT(example.hasFocus(edit), 20000);

    RealPointer::key(QStringLiteral("Escape"));
    RealPointer::key(QStringLiteral("Ctrl+Shift+F8"));
    QTRY_COMPARE_WITH_TIMEOUT(example.value(edit), QStringLiteral("Ctrl+Shift+F8"), 20000);
    RealPointer::key(QStringLiteral("Ctrl+Shift+F8"));
    QTRY_VERIFY_WITH_TIMEOUT(example.sees(label("Pressed 1 times")), 20000);
    RealPointer::key(QStringLiteral("Ctrl+Shift+F8"));
    QTRY_VERIFY_WITH_TIMEOUT(example.sees(label("Pressed 2 times")), 20000);
    QCOMPARE(example.warnings(), QString());
}

ORV_TEST_MAIN(tst_ExampleHotkey)
#include "tst_examplehotkey.moc"
