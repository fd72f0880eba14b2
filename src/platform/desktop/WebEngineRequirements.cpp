#include "platform/desktop/WebEngineRequirements.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char *text) {
    return QCoreApplication::translate("WebEngine", text);
}

bool isSandboxDisabled() {
    return qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX") ||
           qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--no-sandbox");
}

bool canUnshareUsers() {
    const pid_t child = fork();
    if (child == 0)
        _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool hasHelperProgram() {
    const auto chosen = qEnvironmentVariable("QTWEBENGINEPROCESS_PATH");
    const auto installed = QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + u"/QtWebEngineProcess"_s;
    return QFileInfo(chosen.isEmpty() ? installed : chosen).isExecutable();
}

bool hasResources() {
    const auto chosen = qEnvironmentVariable("QTWEBENGINE_RESOURCES_PATH");
    const auto installed = QLibraryInfo::path(QLibraryInfo::DataPath) + u"/resources"_s;
    return QFileInfo::exists((chosen.isEmpty() ? installed : chosen) + u"/qtwebengine_resources.pak"_s);
}

} // namespace

QString unmetWebEngineRequirement() {
    if (!hasHelperProgram())
        return tr("The web engine's helper program is missing.");
    if (!hasResources())
        return tr("The web engine's resources are missing.");
    if (isSandboxDisabled())
        return {};
    if (geteuid() == 0)
        return tr("The web engine does not run for the root user.");
    if (!canUnshareUsers())
        return tr("The web engine's sandbox needs user namespaces, which this system does not allow.");
    return {};
}
