#include "customwraptexttooltip.h"
#include "testmain.h"
#include "ui_controls.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMetaProperty>
#include <QtCore/QPluginLoader>
#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiTools/QUiLoader>

namespace {

const QStringList kControls{
    QStringLiteral("HorizontalSlider"),      QStringLiteral("NewHorizontalSlider"),
    QStringLiteral("CustomSlider"),          QStringLiteral("CustomBidirectionSlider"),
    QStringLiteral("CustomSliderBarWidget"), QStringLiteral("CustomPictureBtn"),
    QStringLiteral("CustomizeIconButton"),   QStringLiteral("CustomToolButton"),
    QStringLiteral("CustomShadowCombox"),    QStringLiteral("CustomComboxHeader"),
    QStringLiteral("customcombox"),          QStringLiteral("CustomKeySequenceEdit"),
    QStringLiteral("CustomPlainTextEdit"),   QStringLiteral("customWrapTextToolTip"),
};

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString form()
{
    return QString::fromUtf8(contentsOf(QStringLiteral(CONTROLS_UI)));
}

/// The form without its layout as a text.
QStringList tokens(const QString &text)
{
    QStringList result;
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            QString element = QLatin1Char('<') + reader.name().toString();
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute &attribute : attributes)
                element += QLatin1Char(' ') + attribute.name().toString() + QLatin1Char('=') +
                           attribute.value().toString();
            result << element;
        } else if (reader.isEndElement()) {
            result << QLatin1Char('/') + reader.name().toString();
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            result << reader.text().toString();
        }
    }
    if (reader.hasError())
        result << reader.errorString();
    return result;
}

struct Widget
{
    QString className;
    QString objectName;
    QVector<QPair<QByteArray, QVariant>> properties;
};

QVector<int> numbers(QXmlStreamReader *reader)
{
    QVector<int> result;
    while (reader->readNextStartElement())
        result << reader->readElementText().toInt();
    return result;
}

// An enumerator is left as the text that it is.
QVariant value(QXmlStreamReader *reader)
{
    const auto type = reader->name().toString();
    if (type == QLatin1String("rect")) {
        const QVector<int> rect = numbers(reader);
        return QRect(rect.value(0), rect.value(1), rect.value(2), rect.value(3));
    }
    if (type == QLatin1String("size")) {
        const QVector<int> size = numbers(reader);
        return QSize(size.value(0), size.value(1));
    }
    if (type == QLatin1String("color")) {
        const QVector<int> color = numbers(reader);
        return QColor(color.value(0), color.value(1), color.value(2));
    }
    if (type == QLatin1String("stringlist")) {
        QStringList texts;
        while (reader->readNextStartElement())
            texts << reader->readElementText();
        return texts;
    }
    const QString text = reader->readElementText();
    if (type == QLatin1String("number"))
        return text.toInt();
    return type == QLatin1String("bool") ? QVariant(text == QLatin1String("true")) : QVariant(text);
}

/// The controls that stand in a form.
QVector<Widget> widgetsOf(const QString &text)
{
    QVector<Widget> result;
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString name = attributes.value(QLatin1String("name")).toString();
        if (reader.name() == QLatin1String("widget")) {
            result.append({attributes.value(QLatin1String("class")).toString(), name, {}});
        } else if (reader.name() == QLatin1String("property") && !result.isEmpty()) {
            reader.readNextStartElement();
            result.last().properties.append({name.toLatin1(), value(&reader)});
        }
    }
    if (!result.isEmpty())
        result.removeFirst(); // the form itself
    return result;
}

void compareWithForm(const QWidget *loaded)
{
    const QVector<Widget> widgets = widgetsOf(form());
    QCOMPARE(widgets.size(), kControls.size());
    for (const Widget &expected : widgets) {
        const auto *widget = loaded->findChild<QWidget *>(expected.objectName);
        QVERIFY2(widget, qPrintable(expected.objectName));
        if (expected.className != QLatin1String("customWrapTextToolTip"))
            QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), expected.className);
        else
            QVERIFY(dynamic_cast<const customWrapTextToolTip *>(widget));
        for (const auto &property : expected.properties) {
            const QMetaObject *meta = widget->metaObject();
            const QMetaProperty found = meta->property(meta->indexOfProperty(property.first));
            QVERIFY2(found.isValid(), property.first);
            const QVariant value = found.read(widget);
            if (!found.isEnumType())
                QCOMPARE(value, property.second);
            else
                QCOMPARE(value.toInt(), found.enumerator().keyToValue(property.second.toByteArray()));
        }
    }
}

/// Designer without its windows.
class Designer
{
public:
    Designer()
    {
        QDesignerComponents::initializeResources();
        m_core.reset(QDesignerComponents::createFormEditor(nullptr));
        QDesignerComponents::initializePlugins(m_core.get());
        m_core->setPropertyEditor(QDesignerComponents::createPropertyEditor(m_core.get(), &m_window));
        new QDesignerIntegration(m_core.get(), m_core.get());
    }

    /// What it writes of a form that it has read.
    QString saved(const QString &text)
    {
        QDesignerFormWindowInterface *form = m_core->formWindowManager()->createFormWindow(&m_window);
        return form->setContents(text) ? form->contents() : QString();
    }

private:
    std::unique_ptr<QDesignerFormEditorInterface> m_core;
    QWidget m_window; // the first to go
};

} // namespace

class tst_designer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void offersTheControls();
    void describesAControl_data();
    void describesAControl();
    void iconsAreNotScaled();
    void theFormHasEveryProperty();
    void formLoader();
    void formCode();
    void designerLosesNothing();
    void designerPlacesEachControl_data();
    void designerPlacesEachControl();

private:
    void addControlRows();

    QList<QDesignerCustomWidgetInterface *> m_controls;
    std::unique_ptr<Designer> m_designer;
};

void tst_designer::initTestCase()
{
    QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY2(collection, qPrintable(loader.errorString()));
    m_controls = collection->customWidgets();
    // Of Designer's plugins none but this one: others leave things to the process.
    QCoreApplication::setLibraryPaths(
        {QFileInfo(QStringLiteral(PLUGIN_FILE)).dir().filePath(QStringLiteral(".."))});
    const ExpectedWarnings fromQt6(
        "^QOpenGLWidget is not supported on this platform"); // it makes one of each
    m_designer = std::make_unique<Designer>();
}

void tst_designer::cleanupTestCase()
{
    m_designer.reset();
}

void tst_designer::offersTheControls()
{
    QStringList names;
    for (const QDesignerCustomWidgetInterface *control : qAsConst(m_controls))
        names << control->name();
    QCOMPARE(names, kControls);
}

void tst_designer::addControlRows()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < kControls.size(); ++index)
        QTest::newRow(qPrintable(kControls.at(index))) << index;
}

void tst_designer::describesAControl_data()
{
    addControlRows();
}

void tst_designer::describesAControl()
{
    QFETCH(const int, index);
    QDesignerCustomWidgetInterface *control = m_controls.at(index);
    QCOMPARE(control->group(), QStringLiteral("orvcommonlib"));
    QVERIFY(!control->isContainer());
    QCOMPARE(control->includeFile(), control->name().toLower() + QStringLiteral(".h"));

    QWidget parent;
    QWidget *const widget = control->createWidget(&parent);
    QCOMPARE(widget->parentWidget(), &parent);
    if (control->name() == QLatin1String("customWrapTextToolTip"))
        QVERIFY(dynamic_cast<customWrapTextToolTip *>(widget));
    else
        QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), control->name());

    // The tool tip is the first sentence of the class's documentation.
    const QString header =
        QString::fromUtf8(contentsOf(QStringLiteral(HEADERS "/") + control->includeFile()));
    const QRegularExpression documentation(
        QStringLiteral("((?:/// ?[^\\n]*\\n)+)class ORVCOMMONLIB_EXPORT %1 ").arg(control->name()));
    const QString text = documentation.match(header)
                             .captured(1)
                             .replace(QRegularExpression(QStringLiteral("\\n?/// ?")), QStringLiteral(" "))
                             .simplified();
    QVERIFY(text.startsWith(control->toolTip()));
    QVERIFY(control->toolTip().endsWith(QLatin1Char('.')));
    QVERIFY(!control->toolTip().contains(QLatin1String(". ")));

    const QVector<Widget> described =
        widgetsOf(QStringLiteral("<ui><widget class=\"QWidget\" name=\"form\"/>") +
                  control->domXml().mid(int(qstrlen("<ui language=\"c++\">"))));
    QCOMPARE(described.size(), 1);
    QCOMPARE(described.first().className, control->name());
    // As a member it would hide the class.
    QVERIFY(described.first().objectName != control->name());
    QVERIFY(described.first().properties.first().second.toRect().isValid());
}

void tst_designer::iconsAreNotScaled()
{
    for (const QDesignerCustomWidgetInterface *control : qAsConst(m_controls)) {
        const QIcon icon = control->icon();
        for (const int side : {22, 24, 44, 48}) {
            const QPixmap pixmap = icon.pixmap(side);
            QCOMPARE(pixmap.size(), QSize(side, side));
            QVERIFY(icon.availableSizes().contains(pixmap.size()));
        }
        // The smaller one lacks nothing but the empty rim of the larger one.
        const QImage large = icon.pixmap(24).toImage();
        QCOMPARE(icon.pixmap(22).toImage(), large.copy(1, 1, 22, 22));
        for (int at = 0; at < 24; ++at) {
            for (const QPoint rim : {QPoint(at, 0), QPoint(at, 23), QPoint(0, at), QPoint(23, at)})
                QCOMPARE(qAlpha(large.pixel(rim)), 0);
        }
    }
}

void tst_designer::theFormHasEveryProperty()
{
    const QVector<Widget> widgets = widgetsOf(form());
    for (const Widget &widget : widgets) {
        const int index = kControls.indexOf(widget.className);
        QVERIFY(index >= 0);
        const std::unique_ptr<QWidget> made(m_controls.at(index)->createWidget(nullptr));
        const QMetaObject *meta = made->metaObject();
        if (widget.className != QLatin1String(meta->className()))
            continue; // without a meta-object, without properties of its own
        QStringList names;
        for (const auto &property : widget.properties)
            names << QString::fromLatin1(property.first);
        for (int at = meta->propertyOffset(); at < meta->propertyCount(); ++at) {
            const QMetaProperty property = meta->property(at);
            const QString name = QString::fromLatin1(property.name());
            QCOMPARE(names.contains(name), property.isDesignable() && property.isWritable());
        }
    }
}

void tst_designer::formLoader()
{
    QUiLoader loader;
    for (const QString &control : kControls)
        QVERIFY(loader.availableWidgets().contains(control));
    QFile file(QStringLiteral(CONTROLS_UI));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> loaded(loader.load(&file));
    QVERIFY2(loaded, qPrintable(loader.errorString()));
    compareWithForm(loaded.get());
    loaded->show();
    QVERIFY(QTest::qWaitForWindowExposed(loaded.get()));
}

void tst_designer::formCode()
{
    QWidget window;
    Ui::Controls controls;
    controls.setupUi(&window);
    compareWithForm(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(controls.shadowComboBox->currentText(), QStringLiteral("Window"));
    QVERIFY(controls.textToolTip->isWindow());
}

void tst_designer::designerLosesNothing()
{
    QCOMPARE(tokens(m_designer->saved(form())), tokens(form()));
}

void tst_designer::designerPlacesEachControl_data()
{
    addControlRows();
}

// A form of one control, as the widget box describes a new one.
void tst_designer::designerPlacesEachControl()
{
    QFETCH(const int, index);
    const QDesignerCustomWidgetInterface *control = m_controls.at(index);
    QString text = control->domXml();
    text.replace(QLatin1String("<widget "),
                 QLatin1String(R"(<class>Form</class><widget class="QWidget" name="Form"><widget )"));
    text.replace(QLatin1String("</widget>"), QLatin1String("</widget></widget>"));
    text.replace(QLatin1String("<ui "), QLatin1String("<ui version=\"4.0\" "));
    const QString saved = m_designer->saved(text);
    const QVector<Widget> before = widgetsOf(text);
    const QVector<Widget> after = widgetsOf(saved);
    QCOMPARE(after.size(), 1);
    QCOMPARE(after.first().className, control->name());
    QCOMPARE(after.first().objectName, before.first().objectName);
    QCOMPARE(after.first().properties, before.first().properties);
    // What uic goes by.
    const QStringList declared = tokens(saved.mid(saved.indexOf(QLatin1String("<customwidgets>"))));
    QCOMPARE(declared.mid(0, 8), tokens(text.mid(text.indexOf(QLatin1String("<customwidgets>")))).mid(0, 8));
}

ORV_TEST_MAIN(tst_designer)
#include "tst_designer.moc"
