#include "commonpopupdialog.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "customkeysequenceedit.h"
#include "custompicturebtn.h"
#include "customplaintextedit.h"
#include "customshadowcombox.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "framelesshelper.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "orvupdatetipdlg.h"
#include "paintcount.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "qhotkey.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QMetaProperty>
#include <QtGui/QMovie>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QLabel>

namespace {

using Factory = QObject *(*)(QWidget *parent);

enum Trait { Plain = 0, User = 1, ReadOnly = 2, Paints = 4 };

/// What a property is to be, and values that differ from the first one and from each other.
struct Property
{
    const char *name;
    const char *type;
    int traits;
    QVariant first; ///< what it reads in a widget of a parent alone; invalid where that depends on the style
    QVariantList values;
    const char *notify = nullptr;
};

struct Class
{
    const QMetaObject *meta;
    Factory make;
    QVector<Property> properties;
};

template<typename Object>
QObject *make(QWidget *parent)
{
    return new Object(parent);
}

QObject *makeCombo(QWidget *parent)
{
    auto *combo = new CustomShadowCombox(parent);
    combo->setItems({QStringLiteral("Zero"), QStringLiteral("One"), QStringLiteral("Two")});
    return combo;
}

// A function, not a constant: the application has to be there.
QVector<Property> sliderProperties(const char *skin, QSize handle, const char *color, int grooveHeightTraits)
{
    return {
        {"minimum", "int", Paints, 0, {-5, 20}},
        {"maximum", "int", Paints, 100, {200, 50, -7}}, // below the minimum, too
        {"value", "int", User | Paints, 0, {5, 99, -500}, "valueChanged"},
        {"skinPath", "QString", Paints, QString::fromLatin1(skin), {QStringLiteral(":/none/"), QString()}},
        {"grooveHeight", "int", grooveHeightTraits, 10, {4, 0, -3}},
        {"handleSize", "QSize", Paints, handle, {QSize(10, 8), QSize(0, 0)}},
        {"valueColor", "QColor", Paints, QColor(QLatin1String(color)), {QColor(1, 2, 3), QColor(9, 9, 9, 9)}},
        {"bidirectional", "bool", Paints, false, {true, false}},
    };
}

QVector<Class> sliders()
{
    Class painted{&NewHorizontalSlider::staticMetaObject, &make<NewHorizontalSlider>,
                  sliderProperties(":/images/images/hslider2/", QSize(14, 14), "#4B66EB", Plain)};
    painted.properties.append({"sliderEnabled", "bool", Paints, true, {false, true}});
    return {
        {&HorizontalSlider::staticMetaObject, &make<HorizontalSlider>,
         sliderProperties(":/images/images/hslider/", QSize(14, 14), "#ABADBF", Paints)},
        painted,
        {&CustomBidirectionSlider::staticMetaObject,
         &make<CustomBidirectionSlider>,
         {{"lineWidth", "int", Paints, 6, {3, 0, -1}},
          {"handleWidth", "int", Paints, 24, {30, 0}},
          {"lineColor", "QColor", Paints, QColor(0x4B, 0x66, 0xEB), {QColor(1, 2, 3), QColor()}},
          {"wheelEnabled", "bool", Plain, false, {true, false}}}},
        {&CustomSlider::staticMetaObject, &make<CustomSlider>, {}},
        {&CustomSliderBarWidget::staticMetaObject,
         &make<CustomSliderBarWidget>,
         {{"count", "int", Paints, 2, {5, 3}}, {"currentIndex", "int", User | Paints, 0, {2, -1, 77}}}},
    };
}

QVector<Class> buttons()
{
    return {
        {&CustomPictureBtn::staticMetaObject,
         &make<CustomPictureBtn>,
         {{"span", "int", Plain, 0, {12, -4}}}}, // takes effect where the layout is computed
        {&CustomizeIconButton::staticMetaObject,
         &make<CustomizeIconButton>,
         {{"text", "QString", Paints, QString(), {QStringLiteral("Share"), QString()}},
          {"iconSize", "QSize", Paints, QSize(24, 24), {QSize(40, 30), QSize(16, 16)}},
          {"spacing", "int", Paints, 8, {20, 0, -1}},
          {"centered", "bool", Paints, true, {false, true}},
          {"buttonEnabled", "bool", Paints, true, {false, true}}}},
        {&CustomToolButton::staticMetaObject,
         &make<CustomToolButton>,
         {{"uncheckOnHide", "bool", Plain, false, {true, false}},
          {"settingWidgetOffset", "int", Plain, 6, {0, -10}},
          {"settingWidgetDirection", "SettingWidgetDirection", Plain, 0, {3, 1, 2}}}},
    };
}

QVector<Class> boxes()
{
    const QStringList three{QStringLiteral("Zero"), QStringLiteral("One"), QStringLiteral("Two")};
    const QStringList others{QStringLiteral("A"), QStringLiteral("B")};
    return {
        {&CustomShadowCombox::staticMetaObject,
         &makeCombo,
         {{"count", "int", ReadOnly, 3, {}},
          {"items", "QStringList", Plain, three, {others, QStringList()}},
          {"currentIndex", "int", User | Paints, -1, {1, 0}},
          {"currentText", "QString", ReadOnly, QString(), {}}}},
        {&CustomComboxHeader::staticMetaObject,
         &make<CustomComboxHeader>,
         {{"text", "QString", Paints, QString(), {QStringLiteral("Chosen"), QStringLiteral("Other")}}}},
        {&customcombox::staticMetaObject,
         &make<customcombox>,
         {{"visibleCount", "int", Plain, 10, {3, 0}},
          {"lineEditWidth", "int", Paints, {}, {70, 90}},
          {"popupSpacing", "int", Plain, 4, {0, -2}}}},
        {&CustomKeySequenceEdit::staticMetaObject,
         &make<CustomKeySequenceEdit>,
         {{"placeholderText", "QString", Paints, QString(), {QStringLiteral("Keys"), QStringLiteral("None")}},
          {"editSize", "QSize", Paints, {}, {QSize(60, 20), QSize(80, 30)}},
          {"noContextMenu", "bool", Plain, false, {true}}}},
        {&CustomPlainTextEdit::staticMetaObject, &make<CustomPlainTextEdit>, {}},
    };
}

QObject *makeMoveDialog(QWidget *parent)
{
    return new BaseMoveDialog(parent, true, false, true);
}

QObject *makeBackImageDialog(QWidget *parent)
{
    return new BaseMoveDialogWithBackImage(QString(), 4, true, true, parent);
}

QObject *makePopup(QWidget *parent)
{
    return new CommonPopupDialog(parent, QStringLiteral("Title"), QSize(300, 240), true, true, false, false,
                                 false);
}

QObject *makeMasked(QWidget *parent)
{
    return new PopupDlgWithMask(QString(), QSize(300, 240), 0, 0, 0, 0, QStringLiteral("Title"), QString(),
                                QString(), QString(), false, false, true, false, parent);
}

QObject *makeLoading(QWidget *parent)
{
    auto *dialog = new PopupLoadingDlgWithMask(QSize(300, 240), QSize(100, 100), QString(), parent);
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->movie())
            label->movie()->setParent(dialog); // which the dialog leaves to the process
    }
    return dialog;
}

QObject *makeTips(QWidget *parent)
{
    return new TipsDlgWithCheckbox(parent, QSize(300, 240), QStringLiteral("Title"), QString(), QString(),
                                   QString());
}

QObject *makeUpdate(QWidget *parent)
{
    auto *dialog =
        new OrvUpdateTipDlg(QSize(440, 260), QString(), 0, 0, 0, 0, parent, QString(), QString(), true, true);
    dialog->setTitle(QStringLiteral("Title"));
    return dialog;
}

QVector<Class> windows()
{
    const QVector<Property> title{{"title", "QString", ReadOnly, QStringLiteral("Title"), {}}};
    return {
        {&BaseMoveDialog::staticMetaObject,
         &makeMoveDialog,
         {{"widgetMovable", "bool", Plain, true, {false, true}},
          {"widgetResizable", "bool", Plain, false, {true, false}}}},
        {&BaseMoveDialogWithBackImage::staticMetaObject, &makeBackImageDialog, {}},
        {&CommonPopupDialog::staticMetaObject, &makePopup, title},
        {&PopupDlgWithMask::staticMetaObject, &makeMasked, title},
        {&PopupLoadingDlgWithMask::staticMetaObject, &makeLoading, {}},
        {&TipsDlgWithCheckbox::staticMetaObject, &makeTips, title},
        {&OrvUpdateTipDlg::staticMetaObject, &makeUpdate, title},
        {&FramelessHelper::staticMetaObject,
         [](QWidget *p) -> QObject * { return new FramelessHelper(p); },
         {}},
    };
}

QVector<Class> classes()
{
    return sliders() + buttons() + boxes() + windows();
}

/// All signals of an object, with how often each came.
class Signals
{
public:
    explicit Signals(QObject *object)
    {
        const QMetaObject *meta = object->metaObject();
        for (int index = QWidget::staticMetaObject.methodCount(); index < meta->methodCount(); ++index) {
            if (meta->method(index).methodType() == QMetaMethod::Signal)
                m_spies.emplace_back(std::make_unique<QSignalSpy>(object, meta->method(index)));
        }
    }
    int count(const char *name = nullptr) const
    {
        int result = 0;
        for (const auto &spy : m_spies) {
            if (!name || spy->signal().startsWith(QByteArray(name) + '('))
                result += spy->size();
        }
        return result;
    }

private:
    std::vector<std::unique_ptr<QSignalSpy>> m_spies;
};

template<typename Action>
void eachProperty(Action add)
{
    const QVector<Class> all = classes();
    for (int index = 0; index < all.size(); ++index) {
        for (int property = 0; property < all.at(index).properties.size(); ++property)
            add(all.at(index), all.at(index).properties.at(property), index, property);
    }
}

/// The object of a row, in a window where it has room.
struct Subject
{
    Subject(int index, int property)
        : of(classes().at(index))
        , tested(of.properties.at(property))
        , object(of.make(&window))
        , meta(object->metaObject()->property(object->metaObject()->indexOfProperty(tested.name)))
    {
        window.resize(500, 400);
    }

    QWidget window;
    const Class of;
    const Property tested;
    QObject *const object;
    const QMetaProperty meta;
};

} // namespace

/// Walks through the properties of every exported class: what form builders, style sheets and scripts see.
class tst_properties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void declaresThese_data();
    void declaresThese();
    void startsAsBefore_data();
    void startsAsBefore();
    void readsWhatWasWritten_data();
    void readsWhatWasWritten();
    void notifiesOfChangesAlone_data();
    void notifiesOfChangesAlone();
    void repaintsOnce_data();
    void repaintsOnce();
    void writingWhatWasReadChangesNothing_data();
    void writingWhatWasReadChangesNothing();

    void directionIsAMemberToo();
    void directionByName_data();
    void directionByName();
    void directionAsVariant();
    void rangeMayStandOnItsHead();
    void menuPolicyIsNotBroughtBack();
    void userChangesNotify();
    void firstFunctionsStay();

private:
    void addPropertyRows();
};

void tst_properties::declaresThese_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < classes().size(); ++index)
        QTest::newRow(classes().at(index).meta->className()) << index;
}

void tst_properties::declaresThese()
{
    QFETCH(const int, index);
    const Class declared = classes().at(index);
    QStringList expected;
    for (const Property &property : declared.properties)
        expected << QString::fromLatin1(property.name);
    QStringList found;
    for (int at = declared.meta->propertyOffset(); at < declared.meta->propertyCount(); ++at)
        found << QString::fromLatin1(declared.meta->property(at).name());
    QCOMPARE(found, expected);

    for (const Property &property : declared.properties) {
        const QMetaProperty meta = declared.meta->property(declared.meta->indexOfProperty(property.name));
        QCOMPARE(meta.typeName(), property.type);
        QVERIFY(meta.isReadable());
        QCOMPARE(meta.isWritable(), (property.traits & ReadOnly) == 0);
        QCOMPARE(meta.isUser(), (property.traits & User) != 0);
        QCOMPARE(meta.hasNotifySignal(), property.notify != nullptr);
        if (property.notify)
            QCOMPARE(meta.notifySignal().name(), QByteArray(property.notify));
        QVERIFY(meta.isDesignable() && meta.isScriptable() && meta.isStored());
    }
}

void tst_properties::addPropertyRows()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("property");
    eachProperty([](const Class &one, const Property &property, int index, int at) {
        QTest::addRow("%s.%s", one.meta->className(), property.name) << index << at;
    });
}

void tst_properties::startsAsBefore_data()
{
    addPropertyRows();
}

void tst_properties::startsAsBefore()
{
    QFETCH(const int, index);
    QFETCH(const int, property);
    const Subject subject(index, property);
    const QVariant value = subject.meta.read(subject.object);
    QVERIFY(value.isValid());
    if (subject.meta.isEnumType())
        QCOMPARE(value.toInt(), subject.tested.first.toInt());
    else if (subject.tested.first.isValid())
        QCOMPARE(value, subject.tested.first);
}

void tst_properties::readsWhatWasWritten_data()
{
    addPropertyRows();
}

void tst_properties::readsWhatWasWritten()
{
    QFETCH(const int, index);
    QFETCH(const int, property);
    const Subject subject(index, property);
    if (!subject.meta.isWritable())
        QVERIFY(!subject.object->setProperty(subject.tested.name, subject.tested.first));
    for (const QVariant &value : subject.tested.values) {
        for (int time = 0; time < 2; ++time) {
            QVERIFY(subject.meta.write(subject.object, value));
            const QVariant read = subject.meta.read(subject.object);
            QCOMPARE(subject.meta.isEnumType() ? QVariant(read.toInt()) : read, value);
        }
    }
}

void tst_properties::notifiesOfChangesAlone_data()
{
    addPropertyRows();
}

void tst_properties::notifiesOfChangesAlone()
{
    QFETCH(const int, index);
    QFETCH(const int, property);
    const Subject subject(index, property);
    const Signals emitted(subject.object);
    int changes = 0;
    for (const QVariant &value : subject.tested.values) {
        ++changes;
        for (int time = 0; time < 2; ++time) {
            subject.meta.write(subject.object, value);
            QCOMPARE(emitted.count(), subject.tested.notify ? changes : 0);
        }
    }
    if (subject.tested.notify)
        QCOMPARE(emitted.count(subject.tested.notify), changes);
}

void tst_properties::repaintsOnce_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("property");
    eachProperty([](const Class &one, const Property &property, int index, int at) {
        if ((property.traits & ReadOnly) == 0)
            QTest::addRow("%s.%s", one.meta->className(), property.name) << index << at;
    });
}

void tst_properties::repaintsOnce()
{
    QFETCH(const int, index);
    QFETCH(const int, property);
    Subject subject(index, property);
    auto *const widget = qobject_cast<QWidget *>(subject.object);
    widget->show();
    subject.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&subject.window));
    PaintCount::settle();
    const bool isPainted = (subject.tested.traits & Paints) != 0;
    for (const QVariant &value : subject.tested.values) {
        PaintCount effective(widget);
        subject.meta.write(subject.object, value);
        QTRY_COMPARE(effective.own, isPainted ? 1 : 0);
        PaintCount::settle();
        QCOMPARE(effective.own, isPainted ? 1 : 0);

        const PaintCount equal(widget);
        subject.meta.write(subject.object, value);
        PaintCount::settle();
        QCOMPARE(equal.all, 0);
    }
}

void tst_properties::writingWhatWasReadChangesNothing_data()
{
    declaresThese_data();
}

void tst_properties::writingWhatWasReadChangesNothing()
{
    QFETCH(const int, index);
    QWidget window;
    window.resize(500, 400);
    const std::unique_ptr<QObject> object(classes().at(index).make(&window));
    auto *const widget = qobject_cast<QWidget *>(object.get());
    const auto looks = [widget] {
        QStringList sheets;
        const QWidgetList widgets = QWidgetList{widget} + widget->findChildren<QWidget *>();
        for (const QWidget *one : widgets)
            sheets << one->styleSheet();
        return std::make_pair(widget->grab().toImage(), sheets);
    };
    if (!widget) // a helper, which has no properties
        return;
    looks(); // the first painting lays out
    const auto before = looks();
    const Signals emitted(widget);
    const QMetaObject *meta = widget->metaObject();
    for (int at = meta->propertyOffset(); at < meta->propertyCount(); ++at) {
        const QMetaProperty property = meta->property(at);
        QCOMPARE(property.write(widget, property.read(widget)), property.isWritable());
    }
    QCOMPARE(emitted.count(), 0);
    QCOMPARE(looks(), before);
}

// Named by the class, as form code and Designer do, and by the enumeration of the first interface alike.
void tst_properties::directionIsAMemberToo()
{
    static_assert(std::is_same_v<CustomToolButton::SettingWidgetDirection, SettingWidgetDirection>,
                  "one type");
    static_assert(CustomToolButton::Bottom == ::Bottom && CustomToolButton::Left == ::Left &&
                      CustomToolButton::Top == ::Top && CustomToolButton::Right == ::Right,
                  "the same numbers");
    CustomToolButton button;
    button.setSettingWidgetDirection(CustomToolButton::Left);
    QCOMPARE(button.settingWidgetDirection(), ::Left);

    const QMetaObject *meta = button.metaObject();
    const QMetaEnum directions = meta->property(meta->indexOfProperty("settingWidgetDirection")).enumerator();
    QCOMPARE(directions.name(), "SettingWidgetDirection");
    QCOMPARE(directions.scope(), "CustomToolButton");
    QVERIFY(!directions.isFlag());
    QCOMPARE(directions.keyCount(), 4);
    QCOMPARE(QMetaEnum::fromType<SettingWidgetDirection>().keyCount(), 4);
}

void tst_properties::directionByName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<SettingWidgetDirection>("direction");
    QTest::newRow("Bottom") << QByteArray("Bottom") << Bottom;
    QTest::newRow("Left") << QByteArray("Left") << Left;
    QTest::newRow("Top") << QByteArray("Top") << Top;
    QTest::newRow("Right") << QByteArray("Right") << Right;
}

void tst_properties::directionByName()
{
    QFETCH(const QByteArray, name);
    QFETCH(const SettingWidgetDirection, direction);
    const char property[] = "settingWidgetDirection";
    const QMetaEnum directions = QMetaEnum::fromType<SettingWidgetDirection>();
    QCOMPARE(directions.keyToValue(name), int(direction));
    QCOMPARE(directions.keyToValue("CustomToolButton::" + name), int(direction));
    const QVariant other = direction == Top ? 0 : 2;
    const QVariant values[] = {QString::fromLatin1(name), int(direction), uint(direction),
                               QVariant::fromValue(direction)};
    for (const QVariant &value : values) {
        CustomToolButton button;
        QVERIFY(button.setProperty(property, other));
        QVERIFY(button.setProperty(property, value));
        QCOMPARE(button.settingWidgetDirection(), direction);
        CustomToolButton second;
        QVERIFY(second.setProperty(property, button.property(property)));
        QCOMPARE(second.settingWidgetDirection(), direction);
    }
}

void tst_properties::directionAsVariant()
{
    CustomToolButton button;
    const QVariant read = button.property("settingWidgetDirection");
    QCOMPARE(read.userType(), qMetaTypeId<SettingWidgetDirection>());
    QVERIFY(!button.setProperty("settingWidgetDirection", QStringLiteral("Nowhere")));
    QCOMPARE(button.settingWidgetDirection(), Bottom);
}

void tst_properties::rangeMayStandOnItsHead()
{
    for (QObject *slider : {make<HorizontalSlider>(nullptr), make<NewHorizontalSlider>(nullptr)}) {
        const std::unique_ptr<QObject> owner(slider);
        slider->setProperty("value", 70);
        slider->setProperty("minimum", 150);
        QCOMPARE(slider->property("minimum").toInt(), 150);
        QCOMPARE(slider->property("maximum").toInt(), 100);
        QCOMPARE(slider->property("value").toInt(), 70);
    }
}

void tst_properties::menuPolicyIsNotBroughtBack()
{
    CustomKeySequenceEdit edit;
    QVERIFY(edit.setProperty("noContextMenu", true));
    QVERIFY(edit.setProperty("noContextMenu", false));
    QVERIFY(edit.property("noContextMenu").toBool());
}

// The property's signal comes with the user's changes as well.
void tst_properties::userChangesNotify()
{
    HorizontalSlider slider;
    slider.grab(); // lays it out
    QSignalSpy changed(&slider, &HorizontalSlider::valueChanged);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(150, 7));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toInt(), slider.property("value").toInt());
}

// The first interface's own spellings do what the new ones do, where there are both.
void tst_properties::firstFunctionsStay()
{
    CustomBidirectionSlider slider;
    slider.enableWheel(true);
    QVERIFY(slider.isWheelEnabled());
    customcombox box;
    box.setVisableCount(4);
    QCOMPARE(box.visibleCount(), 4);
    box.setSpacingBetweenComboxAndPopupWidget(9);
    QCOMPARE(box.popupSpacing(), 9);
    CustomKeySequenceEdit edit(nullptr, QStringLiteral("Keys"));
    QCOMPARE(edit.placeholderText(), QStringLiteral("Keys"));
    edit.setPlaceHolderText(QStringLiteral("Other"));
    QCOMPARE(edit.placeholderText(), QStringLiteral("Other"));
    CustomSliderBarWidget bar;
    bar.setCurrenIndex(1);
    QCOMPARE(bar.property("currentIndex").toInt(), 1);
    BaseMoveDialog dialog(nullptr, false, false, true);
    QVERIFY(!dialog.widgetMovable());
    dialog.setCanMove(true);
    QVERIFY(dialog.widgetMovable());
    CustomizeIconButton button;
    button.setEnabled(false);
    QVERIFY(!button.property("buttonEnabled").toBool());
    QVERIFY(button.isEnabled());
}

ORV_TEST_MAIN(tst_properties)
#include "tst_properties.moc"
