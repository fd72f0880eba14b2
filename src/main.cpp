#include "app/screens/CorvaniteApp.h"
#include "platform/AtomicFileWriter.h"
#include "platform/desktop/ApplicationInstance.h"

#include <QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("corvanite"));
    QApplication::setApplicationDisplayName(QStringLiteral("Corvanite"));
    QApplication::setDesktopFileName(QStringLiteral("com.corvanite.Corvanite"));

    ApplicationInstance instance;
    if (instance.role() == ApplicationInstance::Role::secondary)
        return 0;
    // Where a later start cannot bring the window back, closing it ends the program.
    QApplication::setQuitOnLastWindowClosed(instance.role() == ApplicationInstance::Role::alone);

    int status = 0;
    {
        CorvaniteApp corvanite;
        QObject::connect(&instance, &ApplicationInstance::activated, &corvanite,
                         [&] { corvanite.delegate().handleReopen(); });
        QObject::connect(&instance, &ApplicationInstance::wokeFromSleep, &corvanite,
                         [&] { corvanite.delegate().wokeFromSleep(); });
        corvanite.launch();
        QMetaObject::invokeMethod(&instance, &ApplicationInstance::watchSleep, Qt::QueuedConnection);
        status = QApplication::exec();
    }
    AtomicFileWriter::shared().flush();
    return status;
}
