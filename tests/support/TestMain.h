#pragma once

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTest>

/// What every test program needs: a home of its own under a temporary folder (HOME, XDG_*, TMPDIR), made
/// before the application object, log lines that the environment doesn't filter, and a run that fails when Qt
/// printed a warning that no test expected.
class TestEnvironment {
public:
    TestEnvironment();
    ~TestEnvironment();

    /// Runs the test object and gives the exit code of the program.
    int run(QObject* test, const QStringList& arguments);

private:
    QString m_root;
};

/// Expects warnings whose text matches the regular expression `pattern`, in this test program. For a single
/// warning with a known text, QTest::ignoreMessage is better: it also fails when the warning doesn't come.
void expectWarning(const char* pattern);

template <typename Application, typename Test> int runTest(int argc, char** argv) {
    TestEnvironment environment;
    Application application(argc, argv);
    Test test;
    return environment.run(&test, QCoreApplication::arguments());
}

#define KERNOVA_TEST_MAIN(Test)                             \
    int main(int argc, char** argv) {                       \
        return runTest<QCoreApplication, Test>(argc, argv); \
    }

#define KERNOVA_GUI_TEST_MAIN(Test)                        \
    int main(int argc, char** argv) {                      \
        return runTest<QGuiApplication, Test>(argc, argv); \
    }
