#include "platform/web/SpellChecking.h"

#include "platform/BackgroundWork.h"
#include "platform/web/WebProfile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

const QString systemDictionaries = u"/usr/share/hunspell"_s;
const QString convertedDictionaries = u"/usr/share/hunspell-bdic"_s;

/// Names such as "de_AT", the most wanted first: after each of the person's languages its most common kind.
QStringList wantedLanguages() {
    QStringList languages;
    for (const auto &tag : QLocale().uiLanguages()) {
        const QLocale locale(tag);
        if (locale.language() != QLocale::C)
            languages << locale.name() << QLocale(locale.language()).name();
    }
    languages.removeDuplicates();
    return languages;
}

QString dictionaryOf(const QString &language) {
    for (const auto &file :
         {convertedDictionaries + u'/' + language + u".bdic"_s, systemDictionaries + u'/' + language + u".dic"_s})
        if (QFile::exists(file))
            return file;
    return {};
}

/// For a desktop that names no language: the program speaks English.
QStringList installedEnglish() {
    QStringList kinds{u"en_US"_s, u"en_GB"_s};
    for (const auto &file : QDir(systemDictionaries).entryInfoList({u"en_??.dic"_s}, QDir::Files, QDir::Name))
        kinds.append(file.completeBaseName());
    kinds.removeIf([](const QString &kind) { return dictionaryOf(kind).isEmpty(); });
    return kinds.mid(0, 1);
}

bool isConverted(const QString &dictionary) {
    return dictionary.endsWith(u".bdic"_s);
}

bool isOlder(const QString &file, const QString &than) {
    return QFileInfo(file).lastModified() < QFileInfo(than).lastModified();
}

bool run(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

// The engine would take what is half written for broken.
bool convert(const QString &converter, const QString &source, const QString &target) {
    QTemporaryFile partial(target + u".XXXXXX"_s);
    if (!partial.open() || !run(converter, {source, partial.fileName()}))
        return false;
    const bool isInPlace = partial.rename(target);
    partial.setAutoRemove(!isInPlace);
    return isInPlace || QFile::exists(target);
}

void convertInBackground(const QString &source, const QString &target) {
    const auto converter = QStandardPaths::findExecutable(u"convert-bdic"_s);
    if (!converter.isEmpty())
        runInBackground([=] { return convert(converter, source, target); });
}

/// True when the engine can use it now.
bool provide(const QString &language) {
    const auto source = dictionaryOf(language);
    const auto target = spellingFolder() + u'/' + language + u".bdic"_s;
    if (QFile::exists(target) && !isOlder(target, source))
        return true;
    QFile::remove(target);
    if (isConverted(source))
        return QFile::link(source, target);
    convertInBackground(source, target);
    return false;
}

} // namespace

QString spellingFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/corvanite/dictionaries"_s;
}

void checkSpelling(WebProfile *profile) {
    if (!QDir().mkpath(spellingFolder()))
        return;
    auto languages = wantedLanguages();
    if (languages.isEmpty())
        languages = installedEnglish();
    languages.removeIf([](const QString &language) { return dictionaryOf(language).isEmpty() || !provide(language); });
    profile->setSpellCheckLanguages(languages);
    profile->setSpellCheckEnabled(!languages.isEmpty());
}
