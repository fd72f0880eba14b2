#include "app/screens/CorvaniteApp.h"
#include "platform/AtomicFileWriter.h"
#include "platform/desktop/ApplicationInstance.h"

#include <QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("corvanite"));
    QApplication::setApplicationVersion(QStringLiteral(CORVANITE_VERSION));
    QApplication::setApplicationDisplayName(QStringLiteral("Corvanite"));
    QApplication::setDesktopFileName(QStringLiteral("com.corvanite.Corvanite"));

    const auto urls = QApplication::arguments().mid(1);
    ApplicationInstance instance(urls);
    if (instance.role() == ApplicationInstance::Role::secondary)
        return 0;
    // Where a later start cannot bring the window back, closing it ends the program.
    QApplication::setQuitOnLastWindowClosed(instance.role() == ApplicationInstance::Role::alone);

    int status = 0;
    {
        CorvaniteApp corvanite;
        QObject::connect(&instance, &ApplicationInstance::activated, &corvanite,
                         [&] { corvanite.delegate().handleReopen(); });
        QObject::connect(&instance, &ApplicationInstance::urlOpened, &corvanite,
                         [&](const QString &url) { corvanite.delegate().handleOpenURL(url); });
        QObject::connect(&instance, &ApplicationInstance::wokeFromSleep, &corvanite,
                         [&] { corvanite.delegate().wokeFromSleep(); });
        corvanite.launch();
        for (const auto &url : urls)
            corvanite.delegate().handleOpenURL(url);
        QMetaObject::invokeMethod(&instance, &ApplicationInstance::watchSleep, Qt::QueuedConnection);
        status = QApplication::exec();
    }
    AtomicFileWriter::shared().flush();
    return status;
}
