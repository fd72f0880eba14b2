#pragma once

#include <QString>

/// What two people write to each other in the test of writing.
struct Correspondence {
    static inline const QString subject = QStringLiteral("Berth 4 – plan & tides");
    static inline const QString words = QStringLiteral("Grüße from the \"harbour\" \\ <all>");
    static inline const QString answer = QStringLiteral("Both files are here.");
    static inline const QString forwarding = QStringLiteral("Your plan, back again.");
    static inline const QString planName = QStringLiteral("plan ä.bin");
    static inline const QString notesName = QStringLiteral("notes.txt");

    /// The bytes of the two files.
    static QByteArray plan();
    static QByteArray notes();
};

/// The account "ilias" in a program of its own: waits for the message, looks at it, answers to all and forwards it.
/// Returns the exit code, and says on the standard error what was not as it should be.
int runCorrespondent(const QString &serverAddress);
