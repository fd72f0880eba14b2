#pragma once

#include "support/Await.h"
#include "support/ManualClock.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A home folder of its own for the test process. To be made before the application object.
class TestHome {
public:
    TestHome();
    /// The folder behind `$XDG_CONFIG_HOME` or `$XDG_DATA_HOME`.
    static QString configHome();
    static QString dataHome();

private:
    QTemporaryDir m_folder;
};

/// Base of all tests: fails on a warning that was not announced and on a task that is still running at the end, and
/// leaves defaults and cookies empty.
class CoreTest : public testing::Test {
public:
    CoreTest();
    ~CoreTest() override;

protected:
    void TearDown() override;

    /// Announces warnings whose text matches; at least one must come.
    void expectWarning(const QString &pattern);
    /// A folder that is removed after the test.
    QString temporaryPath(const QString &name) const { return m_folder.filePath(name); }

private:
    void checkWarnings();

    QTemporaryDir m_folder;
    QList<QRegularExpression> m_expectedWarnings;
};

/// Names the tests of a table after the `name` of its rows.
inline constexpr auto rowName = [](const auto &row) { return std::string(row.param.name); };

/// Writes a text in Qt's types into failure messages.
void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QByteArray &bytes, std::ostream *stream);
