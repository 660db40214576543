#pragma once

#include "tests_support/WaitFor.h"

#include <QGuiApplication>
#include <QtCore>
#include <QtTest>

/// A text of a test, written down in UTF-8.
inline QString operator""_s(const char* utf8, size_t size) {
    return QString::fromUtf8(utf8, static_cast<int>(size));
}

/// What a file holds; empty when it can't be read.
QByteArray bytesOf(const QString& path);

/// Makes a file that holds this, or ends the program.
void writeBytes(const QString& path, const QByteArray& bytes = {});

/// Names the columns of a table of cases.
template <typename... Types> void columns(const char* const (&names)[sizeof...(Types)]) {
    int column = 0;
    (QTest::addColumn<Types>(names[column++]), ...);
}

/// A case of the table, with a value for each column.
template <typename... Values> void addRow(const char* name, const Values&... values) {
    (QTest::newRow(name) << ... << values);
}

/// QFETCH for several columns: types and names in turn.
#define FETCH2(Type, name) QFETCH(Type, name)
#define FETCH4(Type, name, ...) \
    QFETCH(Type, name);         \
    FETCH2(__VA_ARGS__)
#define FETCH6(Type, name, ...) \
    QFETCH(Type, name);         \
    FETCH4(__VA_ARGS__)
#define FETCH8(Type, name, ...) \
    QFETCH(Type, name);         \
    FETCH6(__VA_ARGS__)
#define FETCH10(Type, name, ...) \
    QFETCH(Type, name);          \
    FETCH8(__VA_ARGS__)
#define FETCH_OF(a, b, c, d, e, f, g, h, i, j, Macro, ...) Macro
#define FETCH(...) FETCH_OF(__VA_ARGS__, FETCH10, , FETCH8, , FETCH6, , FETCH4, , FETCH2, )(__VA_ARGS__)

/// What every test program needs: a home of its own under a temporary folder, in memory where there is room
/// (HOME, XDG_*, TMPDIR), made before the application object, log lines that the environment doesn't filter
/// and that leave debugging out, and a run that fails when Qt printed a warning that no test expected.
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
