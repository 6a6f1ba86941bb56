// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

/// Base of every test class. A warning, or worse, that a test row did not announce with
/// expectWarning() fails the row; so does an announced one that never came.
class KxTestCase : public QObject
{
    Q_OBJECT

protected:
    /// Announces one warning of the current row; `pattern` is a regular expression.
    static void expectWarning(const QString &pattern) { s_expected.append(pattern); }

protected slots:
    // A test class with an init() or cleanup() of its own calls these from it.
    void init();
    void cleanup();

private:
    static void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static inline QStringList s_expected;
    static inline QStringList s_unexpected;
    static inline QtMessageHandler s_next = nullptr;
};

inline void KxTestCase::init()
{
    s_expected.clear();
    s_unexpected.clear();
    s_next = qInstallMessageHandler(handleMessage);
}

inline void KxTestCase::cleanup()
{
    qInstallMessageHandler(s_next);
    if (!s_unexpected.isEmpty())
        QFAIL(qPrintable(QStringLiteral("unexpected warning: ") + s_unexpected.join(QStringLiteral(" | "))));
    if (!s_expected.isEmpty())
        QFAIL(qPrintable(QStringLiteral("expected warning never came: ") + s_expected.join(QStringLiteral(" | "))));
}

inline void KxTestCase::handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // What the platform plugins print by themselves.
    static const QRegularExpression ofThePlatform(
        QStringLiteral("^(This plugin does not support|propagateSizeHints|QStandardPaths: )"));
    if (type == QtDebugMsg || type == QtInfoMsg || ofThePlatform.match(text).hasMatch()) {
        s_next(type, context, text);
        return;
    }
    for (int i = 0; i < s_expected.size(); ++i) {
        if (QRegularExpression(s_expected.at(i)).match(text).hasMatch()) {
            s_expected.removeAt(i);
            return;
        }
    }
    s_unexpected.append(text);
    s_next(type, context, text);
}

/// Runs `Test` in a QApplication on the offscreen platform (the environment may name another), with the
/// per-user settings store in a private folder.
template<class Test>
int kxRunTest(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// The program's entry; stands last in its file, before the `.moc` of the file is included.
#define KX_TEST_MAIN(Test) \
    int main(int argc, char **argv) \
    { \
        return kxRunTest<Test>(argc, argv); \
    }
