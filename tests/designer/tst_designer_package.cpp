#include "testmain.h"

#include <QtCore/QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

/// The plugin as the package carries it, in a process that knows the library from nowhere else.
class tst_designer_package : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loads();
};

void tst_designer_package::loads()
{
    QPluginLoader loader(QStringLiteral(PLUGIN_FILE));
    const auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY2(collection, qPrintable(loader.errorString()));
    QCOMPARE(collection->customWidgets().size(), 14);
    const QList<QDesignerCustomWidgetInterface *> controls = collection->customWidgets();
    for (QDesignerCustomWidgetInterface *control : controls) {
        const std::unique_ptr<QWidget> made(control->createWidget(nullptr));
        QVERIFY(made);
    }
}

ORV_TEST_MAIN(tst_designer_package)
#include "tst_designer_package.moc"
