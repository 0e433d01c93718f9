#pragma once

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

/// The main function of every test program, in place of QTEST_MAIN: a warning of Qt that nobody expects fails the test
/// function in which it appears. Expected is what QTest::ignoreMessage() or ExpectedWarnings announces, and what is
/// read from a LogCapture.
#define ORV_TEST_MAIN(TestClass)                                                                             \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        QApplication application(argc, argv);                                                                \
        QCoreApplication::setAttribute(Qt::AA_Use96Dpi);                                                     \
        TestClass test;                                                                                      \
        return TestMain::run(&test, argc, argv);                                                             \
    }

/// The same for tests that need no application, or make their own.
#define ORV_TEST_APPLESS_MAIN(TestClass)                                                                     \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        TestClass test;                                                                                      \
        return TestMain::run(&test, argc, argv);                                                             \
    }

/// As long as it lives, warnings of Qt that match are expected, any number of them in any thread. They are not printed.
class ExpectedWarnings
{
public:
    explicit ExpectedWarnings(const char *pattern);
    ~ExpectedWarnings();
    ExpectedWarnings(const ExpectedWarnings &) = delete;
    ExpectedWarnings &operator=(const ExpectedWarnings &) = delete;

    /// Whether any that lives matches the text.
    static bool match(const QString &text);

private:
    QRegularExpression m_pattern;
};

namespace TestMain {

/// Runs the test functions of an object and returns the status for the process to end with.
int run(QObject *test, int argc, char **argv);

/// Whether the windows of this run are those of Windows, which gives a window of no size one of its own choice.
bool isOnWindows();

/// Fails the test function that runs now, or the whole program if the calling thread is not the one that runs them.
void failForWarning(const QString &text);

} // namespace TestMain
