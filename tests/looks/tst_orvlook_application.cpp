#include "customshadowcombox.h"
#include "orvlook.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <memory>
#include <thread>

/// The one object of OrvLook lives as long as the application object.
class tst_OrvLook_application : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutApplication();
    void comesAndGoesWithTheApplication();
    void madeByAnotherThread();
    void lookOutlivesTheApplication();

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};
};

void tst_OrvLook_application::withoutApplication()
{
    QVERIFY(!OrvLook::instance());
    OrvLook::setDark(true);
    QVERIFY(OrvLook::isDark());
    QVERIFY(!OrvLook::names().isEmpty());
    OrvLook::setDark(false);
}

void tst_OrvLook_application::comesAndGoesWithTheApplication()
{
    for (int round = 0; round < 2; ++round) {
        QPointer<OrvLook> look;
        {
            const QApplication application(m_argc, m_argv);
            look = OrvLook::instance();
            QVERIFY(look);
            QCOMPARE(OrvLook::instance(), look.data());
        }
        QVERIFY(!look);
        QVERIFY(!OrvLook::instance());
    }
}

void tst_OrvLook_application::madeByAnotherThread()
{
    const QApplication application(m_argc, m_argv);
    OrvLook *look = nullptr;
    std::thread thread([&look] { look = OrvLook::instance(); });
    thread.join();
    QVERIFY(look);
    QCOMPARE(look->thread(), QThread::currentThread());
    const QSignalSpy changes(look, &OrvLook::changed);
    OrvLook::setDark(true);
    OrvLook::setDark(false);
    QCOMPARE(changes.count(), 2);
}

void tst_OrvLook_application::lookOutlivesTheApplication()
{
    for (int round = 0; round < 2; ++round) {
        const QApplication application(m_argc, m_argv);
        CustomShadowCombox combo(nullptr);
        combo.addItem(QStringLiteral("row"));
        OrvLook::setDark(true);
        QVERIFY(OrvLook::isDark());
    }
    OrvLook::setDark(false);
}

ORV_TEST_APPLESS_MAIN(tst_OrvLook_application)

#include "tst_orvlook_application.moc"
