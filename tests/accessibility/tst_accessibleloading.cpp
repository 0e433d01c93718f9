#include "testmain.h"

#include <QtCore/QFile>
#include <QtCore/QLibrary>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>

#include <memory>

/// Of the same name as the library's, and nothing else of it.
class CustomPictureBtn : public QWidget
{
    Q_OBJECT
};

namespace {

using Make = QWidget *(*)();

struct Application
{
    int argc = 1;
    char name[16] = "application";
    char *argv[2] = {name, nullptr};
    QApplication application{argc, argv};
};

/// The library, by way of a client of it: this program links nothing of it.
class LoadedLibrary
{
public:
    LoadedLibrary() { m_client.load(); }
    ~LoadedLibrary() { m_client.unload(); }

    std::unique_ptr<QWidget> make(const char *function)
    {
        const auto make = reinterpret_cast<Make>(m_client.resolve(function));
        return std::unique_ptr<QWidget>(make ? make() : nullptr);
    }
    QWidget *maskOver(QWidget *window)
    {
        const auto cover = reinterpret_cast<QWidget *(*)(QWidget *)>(m_client.resolve("maskOver"));
        return cover ? cover(window) : nullptr;
    }

private:
    Q_DISABLE_COPY(LoadedLibrary)

    QLibrary m_client{QStringLiteral(CLIENT_FILE)};
};

bool isLibraryThere()
{
    return QFile::exists(QStringLiteral(":/images/images/mask.png"));
}

int roleOf(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? int(interface->role()) : -1;
}

} // namespace

class tst_AccessibleLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void libraryBeforeTheApplication();
    void applicationBeforeTheLibrary();
    void severalApplications();
    void comesAndGoes();
    void nothingIsLeftBehind();
    void anotherClassOfTheSameName();
};

void tst_AccessibleLoading::libraryBeforeTheApplication()
{
    LoadedLibrary library;
    QVERIFY(isLibraryThere());
    const Application application;
    QCOMPARE(roleOf(library.make("newButton").get()), int(QAccessible::Button));
    QCOMPARE(roleOf(library.make("newToolTip").get()), int(QAccessible::ToolTip));
    QWidget window;
    QCOMPARE(roleOf(library.maskOver(&window)), int(QAccessible::NoRole));
}

void tst_AccessibleLoading::applicationBeforeTheLibrary()
{
    const Application application;
    QVERIFY(!isLibraryThere());
    LoadedLibrary library;
    QCOMPARE(roleOf(library.make("newButton").get()), int(QAccessible::Button));
    QCOMPARE(roleOf(library.make("newToolTip").get()), int(QAccessible::ToolTip));
    QWidget window;
    QCOMPARE(roleOf(library.maskOver(&window)), int(QAccessible::NoRole));
}

void tst_AccessibleLoading::severalApplications()
{
    LoadedLibrary library;
    for (int round = 0; round < 3; ++round) {
        const Application application;
        QCOMPARE(roleOf(library.make("newButton").get()), int(QAccessible::Button));
        QCOMPARE(roleOf(library.make("newToolTip").get()), int(QAccessible::ToolTip));
    }
}

void tst_AccessibleLoading::comesAndGoes()
{
    const Application application;
    for (int round = 0; round < 3; ++round) {
        QVERIFY(!isLibraryThere());
        LoadedLibrary library;
        QVERIFY(isLibraryThere());
        QCOMPARE(roleOf(library.make("newToolTip").get()), int(QAccessible::ToolTip));
    }
    QVERIFY(!isLibraryThere());
}

void tst_AccessibleLoading::nothingIsLeftBehind()
{
    const Application application;
    QWidget window;
    QAccessible::Id id = 0;
    {
        LoadedLibrary library;
        const std::unique_ptr<QWidget> button = library.make("newButton");
        id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(button.get()));
        QVERIFY(QAccessible::accessibleInterface(id));
        QCOMPARE(roleOf(library.make("newToolTip").get()), int(QAccessible::ToolTip));
        delete library.maskOver(&window);
    }
    QVERIFY(!isLibraryThere());
    QVERIFY(!QAccessible::accessibleInterface(id));
    QDialog dialog;
    QCOMPARE(roleOf(&dialog), int(QAccessible::Dialog));
    QLabel label(QStringLiteral("text"));
    QCOMPARE(roleOf(&label), int(QAccessible::StaticText));
    CustomPictureBtn other;
    QCOMPARE(roleOf(&other), int(QAccessible::Client));
}

void tst_AccessibleLoading::anotherClassOfTheSameName()
{
    const Application application;
    LoadedLibrary library;
    QCOMPARE(roleOf(library.make("newButton").get()), int(QAccessible::Button));
    CustomPictureBtn other;
    QCOMPARE(roleOf(&other), int(QAccessible::Client));
}

ORV_TEST_APPLESS_MAIN(tst_AccessibleLoading)
#include "tst_accessibleloading.moc"
