#include "platform/web/SpellChecking.h"

#include "platform/web/WebProfile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString systemDictionaries = u"/usr/share/hunspell"_s;
const QString convertedDictionaries = u"/usr/share/hunspell-bdic"_s;

/// "de_DE" for each of the person's languages, the most wanted first.
QStringList wantedLanguages() {
    QStringList languages;
    for (const auto &tag : QLocale().uiLanguages()) {
        const auto name = QLocale(tag).name();
        if (name.contains(u'_') && !languages.contains(name))
            languages.append(name);
    }
    return languages;
}

QStringList installedLanguages() {
    QStringList languages;
    for (const auto &file : QDir(systemDictionaries).entryInfoList({u"??_??.dic"_s}, QDir::Files, QDir::Name))
        languages.append(file.completeBaseName());
    return languages;
}

QString dictionaryOf(const QString &language) {
    for (const auto &file :
         {convertedDictionaries + u'/' + language + u".bdic"_s, systemDictionaries + u'/' + language + u".dic"_s})
        if (QFile::exists(file))
            return file;
    return {};
}

bool isConverted(const QString &dictionary) {
    return dictionary.endsWith(u".bdic"_s);
}

bool isOlder(const QString &file, const QString &than) {
    return QFileInfo(file).lastModified() < QFileInfo(than).lastModified();
}

void enable(WebProfile *profile, const QString &language) {
    auto languages = profile->spellCheckLanguages();
    if (!languages.contains(language))
        profile->setSpellCheckLanguages(languages << language);
    profile->setSpellCheckEnabled(true);
}

// The engine opens dictionaries of one folder, and takes what is half written for broken.
void convert(WebProfile *profile, const QString &source, const QString &target, const QString &language) {
    const auto converter = QStandardPaths::findExecutable(u"convert-bdic"_s);
    if (converter.isEmpty())
        return;
    auto *process = new QProcess(profile);
    const auto partial = target + u".part"_s;
    QObject::connect(process, &QProcess::finished, profile, [=](int code) {
        process->deleteLater();
        QFile::remove(target);
        if (code == 0 && QFile::rename(partial, target))
            enable(profile, language);
    });
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(converter, {source, partial});
}

void provide(WebProfile *profile, const QString &language) {
    const auto source = dictionaryOf(language);
    const auto target = spellingFolder() + u'/' + language + u".bdic"_s;
    if (QFile::exists(target) && !isOlder(target, source))
        return enable(profile, language);
    QFile::remove(target);
    if (!isConverted(source))
        convert(profile, source, target, language);
    else if (QFile::link(source, target))
        enable(profile, language);
}

} // namespace

QString spellingFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/corvanite/dictionaries"_s;
}

void checkSpelling(WebProfile *profile) {
    if (profile->isSpellCheckEnabled() || !QDir().mkpath(spellingFolder()))
        return;
    auto languages = wantedLanguages();
    languages.removeIf([](const QString &language) { return dictionaryOf(language).isEmpty(); });
    if (languages.isEmpty())
        languages = installedLanguages().mid(0, 1);
    for (const auto &language : std::as_const(languages))
        provide(profile, language);
}
