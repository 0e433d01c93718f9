#include "statesheet.h"

#include "pictures.h"
#include "testmain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyleFactory>

#include <functional>
#include <memory>

namespace {

// What lies in each other, as a label does in its row and its list.
struct Stage
{
    Stage()
    {
        window.resize(100, 100);
        panel.resize(80, 80);
        label.resize(20, 20);
        label.setText(QStringLiteral("text"));
    }
    QWidget window;
    QWidget panel{&window};
    QLabel label{&panel};
};

class StyleCounter : public QObject
{
public:
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }
};

QColor textColor(const QLabel &label)
{
    return label.palette().color(QPalette::WindowText);
}

} // namespace

using Change = std::function<void(Stage &)>;
Q_DECLARE_METATYPE(Change)

class tst_StateSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qApp->setStyleSheet(QString()); }

    void setsAnotherSheet();
    void leavesASheetAloneThatIsInForce();
    void seesWhatHasChanged_data();
    void seesWhatHasChanged();
    void setsPropertiesAgain();
    void showsPicturesAsTheyAre();
};

void tst_StateSheet::setsAnotherSheet()
{
    Stage stage;
    applyStateSheet(&stage.label, QStringLiteral("QLabel{color:red;}"));
    stage.window.ensurePolished();
    QCOMPARE(textColor(stage.label), QColor(Qt::red));
    applyStateSheet(&stage.label, QStringLiteral("QLabel{color:blue;}"));
    QCOMPARE(stage.label.styleSheet(), QStringLiteral("QLabel{color:blue;}"));
    QCOMPARE(textColor(stage.label), QColor(Qt::blue));
    applyStateSheet(&stage.label, QString());
    QCOMPARE(stage.label.styleSheet(), QString());
}

void tst_StateSheet::leavesASheetAloneThatIsInForce()
{
    Stage stage;
    stage.window.setStyleSheet(QStringLiteral("QWidget#panel{background:url(nothing.png);}"));
    applyStateSheet(&stage.label, QStringLiteral("QLabel{color:red;}"));
    stage.window.ensurePolished();
    StyleCounter counter;
    stage.label.installEventFilter(&counter);
    stage.label.setProperty("flag", true); // nothing selects on it
    applyStateSheet(&stage.label, QStringLiteral("QLabel{color:red;}"));
    QCOMPARE(counter.count, 0);
}

void tst_StateSheet::seesWhatHasChanged_data()
{
    QTest::addColumn<QString>("above");
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("own");
    QTest::addColumn<Change>("change");
    const QString red = QStringLiteral("QLabel{color:red;}");
    const QString blueByFlag = QStringLiteral("QLabel[flag=\"true\"]{color:blue;}");
    const Change flagLabel = [](Stage &stage) {
        stage.label.setProperty("flag", true);
    };
    const Change flagWindow = [](Stage &stage) {
        stage.window.setProperty("flag", true);
    };
    QTest::newRow("property of its own") << QString() << QString() << red + blueByFlag << flagLabel;
    QTest::newRow("property of what it lies in")
        << QString() << QString() << red + QStringLiteral("QWidget[flag=\"true\"] QLabel{color:blue;}")
        << flagWindow;
    QTest::newRow("property that a sheet above selects on")
        << red + blueByFlag << QString() << QStringLiteral("QLabel{background:white;}") << flagLabel;
    QTest::newRow("property that the application's sheet selects on")
        << QString() << red + blueByFlag << QStringLiteral("QLabel{background:white;}") << flagLabel;
    QTest::newRow("property that is not dynamic")
        << QString() << QString() << red + QStringLiteral("QLabel[toolTip=\"tip\"]{color:blue;}")
        << Change([](Stage &stage) { stage.label.setToolTip(QStringLiteral("tip")); });
    QTest::newRow("new sheet above") << QString() << QString() << QStringLiteral("QLabel{background:white;}")
                                     << Change([](Stage &stage) {
                                            stage.window.setStyleSheet(QStringLiteral("QLabel{color:blue;}"));
                                        });
    QTest::newRow("new sheet of the application")
        << QString() << QString() << QStringLiteral("QLabel{background:white;}")
        << Change([](Stage &) { qApp->setStyleSheet(QStringLiteral("QLabel{color:blue;}")); });
    QTest::newRow("new parent") << QString() << QString()
                                << red + QStringLiteral("QFrame QLabel{color:blue;}")
                                << Change([](Stage &stage) {
                                       auto *frame = new QFrame(&stage.window);
                                       stage.label.setParent(frame);
                                   });
}

void tst_StateSheet::seesWhatHasChanged()
{
    QFETCH(QString, above);
    QFETCH(QString, application);
    QFETCH(QString, own);
    QFETCH(Change, change);
    Stage stage;
    qApp->setStyleSheet(application);
    stage.window.setStyleSheet(above);
    applyStateSheet(&stage.label, own);
    stage.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
    QVERIFY(textColor(stage.label) != QColor(Qt::blue));
    change(stage);
    applyStateSheet(&stage.label, own);
    QCOMPARE(textColor(stage.label), QColor(Qt::blue));
}

void tst_StateSheet::setsPropertiesAgain()
{
    Stage stage;
    const QString sheet = QStringLiteral("QLabel{qproperty-text:\"sheet\";}");
    applyStateSheet(&stage.label, sheet);
    stage.window.ensurePolished();
    QCOMPARE(stage.label.text(), QStringLiteral("sheet"));
    stage.label.setText(QStringLiteral("client"));
    applyStateSheet(&stage.label, sheet);
    QCOMPARE(stage.label.text(), QStringLiteral("sheet"));
}

void tst_StateSheet::showsPicturesAsTheyAre()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(path));
    Stage stage;
    stage.label.setText(QString());
    const QString sheet = QStringLiteral("QLabel{border-image:url(%1);}").arg(path);
    applyStateSheet(&stage.label, sheet);
    QCOMPARE(renderWidget(&stage.label).pixelColor(10, 10), QColor(Qt::red));
    QImage larger(30, 30, QImage::Format_RGB32); // not told from the first one by its time alone
    larger.fill(Qt::blue);
    QVERIFY(larger.save(path));
    applyStateSheet(&stage.label, sheet);
    QCOMPARE(renderWidget(&stage.label).pixelColor(10, 10), QColor(Qt::blue));
}

ORV_TEST_MAIN(tst_StateSheet)

#include "tst_statesheet.moc"
