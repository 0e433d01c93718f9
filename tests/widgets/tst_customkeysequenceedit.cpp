#include "customkeysequenceedit.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

namespace {

const QString kPlaceholder = QStringLiteral("Type a shortcut");

QLineEdit *innerLineEdit(const CustomKeySequenceEdit &edit)
{
    return edit.findChild<QLineEdit *>();
}

// One press of one key: QTest::keyPress() would press the modifiers as keys of their own before it.
void press(CustomKeySequenceEdit &edit, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&edit, &event);
}

} // namespace

class tst_CustomKeySequenceEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithThePlaceholder();
    void startsWithASequence();
    void keepsTheLatestChordOnly();
    void everyKeyEndsTheEditing_data();
    void everyKeyEndsTheEditing();
    void signalsOfOneKeyPress();
    void modifiersAloneKeepTheChord_data();
    void modifiersAloneKeepTheChord();
    void backspaceClearsAndShowsThePlaceholder();
    void backspaceOnAnEmptyEditorStillEndsTheEditing();
    void cutsAtTheFirstComma();
    void clearBringsTheStoredPlaceholderBack();
    void settingAnEmptySequenceBringsTheStoredPlaceholderBack();
    void settingASequenceLeavesThePlaceholderToTheBase();
    void placeholderOfTheMomentIsNotStored();
    void fixesTheSizeOfTheLineEdit();
    void findsTheLineEditByItsNewName();
    void doesNothingForALineEditThatItCannotFind();
    void takesTheContextMenu();
    void destroyedInItsOwnSignal_data();
    void destroyedInItsOwnSignal();
};

void tst_CustomKeySequenceEdit::startsWithThePlaceholder()
{
    const CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    QVERIFY(edit.keySequence().isEmpty());
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);

    const CustomKeySequenceEdit plain;
    QCOMPARE(innerLineEdit(plain)->placeholderText(), QString());
}

void tst_CustomKeySequenceEdit::startsWithASequence()
{
    const QKeySequence sequence(Qt::CTRL | Qt::Key_A);
    const CustomKeySequenceEdit edit(sequence, nullptr, kPlaceholder);
    QCOMPARE(edit.keySequence(), sequence);
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
}

void tst_CustomKeySequenceEdit::keepsTheLatestChordOnly()
{
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::CTRL | Qt::Key_A));
    QTest::keyClick(&edit, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::CTRL | Qt::Key_B));
    QCOMPARE(innerLineEdit(edit)->text(),
             QKeySequence(Qt::CTRL | Qt::Key_B).toString(QKeySequence::NativeText));
}

void tst_CustomKeySequenceEdit::everyKeyEndsTheEditing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("chord") << int(Qt::Key_K)
                           << Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("function key") << int(Qt::Key_F5) << Qt::KeyboardModifiers();
    QTest::newRow("letter") << int(Qt::Key_Q) << Qt::KeyboardModifiers();
    QTest::newRow("modifier alone") << int(Qt::Key_Control) << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << Qt::KeyboardModifiers();
}

void tst_CustomKeySequenceEdit::everyKeyEndsTheEditing()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    CustomKeySequenceEdit edit;
    const QSignalSpy finished(&edit, &QKeySequenceEdit::editingFinished);
    press(edit, key, modifiers);
    QCOMPARE(finished.count(), 1);
    press(edit, key, modifiers);
    QCOMPARE(finished.count(), 2);
}

void tst_CustomKeySequenceEdit::signalsOfOneKeyPress()
{
    CustomKeySequenceEdit edit;
    QStringList order;
    connect(&edit, &QKeySequenceEdit::keySequenceChanged, this, [&](const QKeySequence &sequence) {
        order << QStringLiteral("changed ") + sequence.toString(QKeySequence::PortableText);
    });
    connect(&edit, &QKeySequenceEdit::editingFinished, this, [&] { order << QStringLiteral("finished"); });
    press(edit, Qt::Key_A, Qt::AltModifier);
    QCOMPARE(order, (QStringList{QStringLiteral("changed Alt+A"), QStringLiteral("finished")}));

    // The same chord once more is reported once more, after the base has cleared the old one.
    order.clear();
    press(edit, Qt::Key_A, Qt::AltModifier);
    QCOMPARE(order, (QStringList{QStringLiteral("changed "), QStringLiteral("changed Alt+A"),
                                 QStringLiteral("finished")}));
}

void tst_CustomKeySequenceEdit::modifiersAloneKeepTheChord_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Shift") << int(Qt::Key_Shift);
    QTest::newRow("Control") << int(Qt::Key_Control);
    QTest::newRow("Alt") << int(Qt::Key_Alt);
    QTest::newRow("Meta") << int(Qt::Key_Meta);
    QTest::newRow("unknown") << int(Qt::Key_unknown);
}

// Somebody who only looks at the field, and leaves it with Shift+Tab, must not lose what is bound there.
void tst_CustomKeySequenceEdit::modifiersAloneKeepTheChord()
{
    QFETCH(int, key);
    const QKeySequence bound(Qt::CTRL | Qt::Key_A);
    CustomKeySequenceEdit edit(bound, nullptr, kPlaceholder);
    QStringList order;
    connect(&edit, &QKeySequenceEdit::keySequenceChanged, this, [&](const QKeySequence &sequence) {
        order << QStringLiteral("changed ") + sequence.toString(QKeySequence::PortableText);
    });
    connect(&edit, &QKeySequenceEdit::editingFinished, this, [&] {
        order << QStringLiteral("finished ") + edit.keySequence().toString(QKeySequence::PortableText);
    });
    press(edit, key);
    QCOMPARE(edit.keySequence(), bound);
    QCOMPARE(innerLineEdit(edit)->text(), bound.toString(QKeySequence::NativeText));
    QCOMPARE(order, (QStringList{QStringLiteral("changed Ctrl+A"), QStringLiteral("finished Ctrl+A")}));

    // What follows replaces it as ever.
    press(edit, Qt::Key_F5, Qt::ShiftModifier);
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::SHIFT | Qt::Key_F5));

    // An empty field stays empty, and shows its placeholder.
    CustomKeySequenceEdit empty(nullptr, kPlaceholder);
    press(empty, key);
    QVERIFY(empty.keySequence().isEmpty());
    QCOMPARE(innerLineEdit(empty)->placeholderText(), kPlaceholder);
}

void tst_CustomKeySequenceEdit::backspaceClearsAndShowsThePlaceholder()
{
    CustomKeySequenceEdit edit(QKeySequence(Qt::CTRL | Qt::Key_A), nullptr, kPlaceholder);
    QTest::keyClick(&edit, Qt::Key_B,
                    Qt::ControlModifier); // the base shows a placeholder of its own while it records
    const QSignalSpy changed(&edit, &QKeySequenceEdit::keySequenceChanged);
    const QSignalSpy finished(&edit, &QKeySequenceEdit::editingFinished);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QVERIFY(edit.keySequence().isEmpty());
    QCOMPARE(innerLineEdit(edit)->text(), QString());
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(finished.count(), 1);
}

void tst_CustomKeySequenceEdit::backspaceOnAnEmptyEditorStillEndsTheEditing()
{
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    const QSignalSpy changed(&edit, &QKeySequenceEdit::keySequenceChanged);
    const QSignalSpy finished(&edit, &QKeySequenceEdit::editingFinished);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
}

void tst_CustomKeySequenceEdit::cutsAtTheFirstComma()
{
    // "Ctrl+," is cut into "Ctrl+", which names no key.
    const QKeySequence cut = QKeySequence::fromString(QStringLiteral("Ctrl+"), QKeySequence::PortableText);
    QVERIFY(cut != QKeySequence(Qt::CTRL | Qt::Key_Comma));
    CustomKeySequenceEdit edit(QKeySequence(Qt::CTRL | Qt::Key_A), nullptr, QString());
    QSignalSpy changed(&edit, &QKeySequenceEdit::keySequenceChanged);
    QTest::keyClick(&edit, Qt::Key_Comma, Qt::ControlModifier);
    QKeySequenceEdit stock(QKeySequence(Qt::CTRL | Qt::Key_A)); // in Qt 6 it forgets what has no text
    stock.setKeySequence(cut);
    QCOMPARE(edit.keySequence(), stock.keySequence());
    QCOMPARE(changed.constLast().constFirst().value<QKeySequence>(), cut);
    // The cut takes what it finds, also between chords.
    edit.QKeySequenceEdit::setKeySequence(QKeySequence(Qt::CTRL | Qt::Key_X, Qt::CTRL | Qt::Key_Y));
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit.keySequence().count(), 1);
}

void tst_CustomKeySequenceEdit::clearBringsTheStoredPlaceholderBack()
{
    CustomKeySequenceEdit edit(QKeySequence(Qt::Key_F1), nullptr, kPlaceholder);
    edit.setPlaceHolderText(QStringLiteral("other"));
    edit.clear();
    QVERIFY(edit.keySequence().isEmpty());
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
    QVERIFY(edit.metaObject()->indexOfSlot("clear()") >=
            CustomKeySequenceEdit::staticMetaObject.methodOffset());
}

void tst_CustomKeySequenceEdit::settingAnEmptySequenceBringsTheStoredPlaceholderBack()
{
    CustomKeySequenceEdit edit(QKeySequence(Qt::Key_F1), nullptr, kPlaceholder);
    edit.setPlaceHolderText(QStringLiteral("other"));
    edit.setKeySequence(QKeySequence());
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
}

void tst_CustomKeySequenceEdit::settingASequenceLeavesThePlaceholderToTheBase()
{
    QKeySequenceEdit base;
    base.setKeySequence(QKeySequence(Qt::Key_F2));
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    edit.setKeySequence(QKeySequence(Qt::Key_F2));
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::Key_F2));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), base.findChild<QLineEdit *>()->placeholderText());
}

void tst_CustomKeySequenceEdit::placeholderOfTheMomentIsNotStored()
{
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    edit.setPlaceHolderText(QStringLiteral("now"));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), QStringLiteral("now"));
    edit.clear();
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
}

void tst_CustomKeySequenceEdit::fixesTheSizeOfTheLineEdit()
{
    CustomKeySequenceEdit edit;
    edit.setEditSize(QSize(123, 31));
    QCOMPARE(innerLineEdit(edit)->minimumSize(), QSize(123, 31));
    QCOMPARE(innerLineEdit(edit)->maximumSize(), QSize(123, 31));
}

void tst_CustomKeySequenceEdit::findsTheLineEditByItsNewName()
{
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    QCOMPARE(innerLineEdit(edit)->objectName(), QStringLiteral("qt_keysequenceedit_lineedit"));
    edit.setCustomObjectName(QStringLiteral("x"));
    QCOMPARE(innerLineEdit(edit)->objectName(), QStringLiteral("x"));
    edit.setPlaceHolderText(QStringLiteral("through x"));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), QStringLiteral("through x"));
    edit.setEditSize(QSize(50, 20));
    QCOMPARE(innerLineEdit(edit)->maximumSize(), QSize(50, 20));

    edit.setCustomObjectName(QStringLiteral("y"));
    edit.setPlaceHolderText(QStringLiteral("through y"));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), QStringLiteral("through y"));
}

void tst_CustomKeySequenceEdit::doesNothingForALineEditThatItCannotFind()
{
    // Renamed from outside, and no name of ours is stored: neither the setters nor a renaming reach it.
    CustomKeySequenceEdit edit(nullptr, kPlaceholder);
    innerLineEdit(edit)->setObjectName(QStringLiteral("strange"));
    const QSize before = innerLineEdit(edit)->maximumSize();
    edit.setPlaceHolderText(QStringLiteral("lost"));
    edit.setEditSize(QSize(10, 10));
    edit.setNoContextMenu(true);
    edit.setCustomObjectName(QStringLiteral("x"));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);
    QCOMPARE(innerLineEdit(edit)->maximumSize(), before);
    QCOMPARE(innerLineEdit(edit)->contextMenuPolicy(), Qt::DefaultContextMenu);
    QCOMPARE(innerLineEdit(edit)->objectName(), QStringLiteral("strange"));

    // The name of the failed renaming was not stored either.
    innerLineEdit(edit)->setObjectName(QStringLiteral("x"));
    edit.setPlaceHolderText(QStringLiteral("lost"));
    QCOMPARE(innerLineEdit(edit)->placeholderText(), kPlaceholder);

    delete innerLineEdit(edit);
    edit.setPlaceHolderText(QStringLiteral("nobody there"));
    edit.setEditSize(QSize(10, 10));
    edit.setNoContextMenu(true);
    edit.setCustomObjectName(QStringLiteral("z"));
}

void tst_CustomKeySequenceEdit::takesTheContextMenu()
{
    CustomKeySequenceEdit edit;
    edit.setNoContextMenu(false);
    QCOMPARE(innerLineEdit(edit)->contextMenuPolicy(), Qt::DefaultContextMenu);
    edit.setNoContextMenu(true);
    QCOMPARE(innerLineEdit(edit)->contextMenuPolicy(), Qt::NoContextMenu);
    edit.setNoContextMenu(false);
    QCOMPARE(innerLineEdit(edit)->contextMenuPolicy(), Qt::NoContextMenu);
}

void tst_CustomKeySequenceEdit::destroyedInItsOwnSignal_data()
{
    QTest::addColumn<QKeySequence>("sequence");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("whenFinished");
    QTest::newRow("backspace") << QKeySequence(Qt::Key_F1) << int(Qt::Key_Backspace) << false;
    QTest::newRow("first chord") << QKeySequence() << int(Qt::Key_A) << false;
    QTest::newRow("finished") << QKeySequence() << int(Qt::Key_A) << true;
}

void tst_CustomKeySequenceEdit::destroyedInItsOwnSignal()
{
    QFETCH(QKeySequence, sequence);
    QFETCH(int, key);
    QFETCH(bool, whenFinished);
    QPointer<CustomKeySequenceEdit> edit(new CustomKeySequenceEdit(sequence, nullptr, kPlaceholder));
    const auto destroy = [&] {
        delete edit;
    };
    if (whenFinished)
        connect(edit, &QKeySequenceEdit::editingFinished, this, destroy);
    else
        connect(edit, &QKeySequenceEdit::keySequenceChanged, this, destroy);
    press(*edit, key);
    QVERIFY(!edit);
}

ORV_TEST_MAIN(tst_CustomKeySequenceEdit)

#include "tst_customkeysequenceedit.moc"
