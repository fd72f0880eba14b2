#pragma once

#include "app/ServerAddressForm.h"

#include <QWidget>

class ErrorBanner;
class FormField;
class LinkButton;
class QCheckBox;
class ThemeLabel;

/// The quiet line with the server in use, and the small form behind it that chooses another one.
class ServerForm final : public QWidget {
    Q_OBJECT
public:
    explicit ServerForm(std::shared_ptr<ServerAddressForm> form, QWidget *parent = nullptr);

Q_SIGNALS:
    /// Another server, or another trust in it, is in force.
    void serverChanged();

private:
    QWidget *makeLine();
    QWidget *makeEditor();
    void open();
    void close();
    void apply();
    void render();

    std::shared_ptr<ServerAddressForm> m_form;
    QWidget *m_line, *m_editor;
    ThemeLabel *m_current;
    LinkButton *m_change;
    FormField *m_address;
    QCheckBox *m_trust;
    ThemeLabel *m_warning;
    ErrorBanner *m_error;
};
