#pragma once

#include "app/AppState.h"
#include "compose/ComposeViewModel.h"
#include "rules/Contact.h"
#include "rules/EmailTemplate.h"

#include <QUrl>

/// What the compose screen decides: how a new message is filled, the completion of addresses, files, templates and
/// writing by the server's model. Made for the presentation that is current in `AppState`, whose requests it takes.
class ComposeState : public ObservableObject, public std::enable_shared_from_this<ComposeState> {
    Q_OBJECT
public:
    static std::shared_ptr<ComposeState> make(std::shared_ptr<AppState> appState);

    /// Its changes count as changes of this, too.
    const std::shared_ptr<ComposeViewModel> viewModel;

    Published<bool> showAttachmentPicker{this, false};
    Published<bool> showAIPrompt{this, false};
    Published<QString> aiPrompt{this};
    Published<bool> isAILoading{this, false};
    Published<bool> showTemplatePicker{this, false};
    Published<std::vector<EmailTemplate>> templates{this};
    Published<std::vector<Contact>> allContacts{this};
    /// Matches for what is being typed into "To".
    Published<std::vector<Contact>> contactSuggestions{this};
    Published<bool> showSuggestions{this, false};
    /// What the editor holds.
    Published<QString> editorHTML{this};
    /// What the editor is to show; typing does not change it.
    Published<QString> initialEditorContent{this};
    Published<QString> signatureHTML{this};

    /// The subject, or what stands for it.
    QString title() const;

    /// Calls back with what stands in the editor at this moment, with nothing when the page is not there, and not at
    /// all once the screen has gone.
    using ReadEditor = std::function<void(std::function<void(std::optional<QString>)>)>;
    void readEditorWith(ReadEditor read) { m_readEditor = std::move(read); }
    /// Brings the last keys into `viewModel`, which the editor has not reported yet, and then calls `then`; not once
    /// the screen has gone.
    void withEditorText(std::function<void(ComposeState &)> then);
    /// Fills the message; a second call does nothing.
    void start();
    bool isFilled() const { return m_isFilled; }
    /// The editor holds this now.
    void editorChanged(const QString &html);
    /// The person has typed in "To".
    void recipientsEdited(const QString &text);
    /// Replaces all that was typed.
    void chooseSuggestion(const Contact &contact);
    /// Removes the list of suggestions until the next key.
    void closeSuggestions();

    void openTemplates();
    /// Replaces all of the text, signature and quotation included.
    void pickTemplate(const EmailTemplate &chosen);

    bool offersAI() const;
    bool canGenerate() const;
    /// Has the text written, which replaces the one that stands there.
    void generate();
    void closeAIPrompt();

    /// Reads and attaches one after the other; those that cannot be attached are named in `errorMessage`.
    void attachFiles(const QList<QUrl> &urls);

    /// False while the message is being filled or sent, and while files are still being read.
    bool canSend() const;
    /// The newest HTML of the editor has been told by `editorChanged`. Ends with `dismissed` on success; `AppState`
    /// hears of every success, and of a failure once the screen is closed.
    QCoro::Task<> send();
    /// Whether the message can be opened again once its screen is closed.
    bool isKept() const { return m_request.unsent && !m_isSent; }
    /// The screen is gone.
    void close();

Q_SIGNALS:
    /// What the message begins with stands in its fields.
    void filled();
    /// The message is sent; the screen is to close.
    void dismissed();

private:
    explicit ComposeState(std::shared_ptr<AppState> appState);
    ComposeState(std::shared_ptr<AppState> appState, ComposeRequest request);
    QCoro::Task<> loadContacts();
    void suggest(const std::vector<Contact> &matches);
    QCoro::Task<> loadTemplates();
    QCoro::Task<> writeText(QString prompt);
    QCoro::Task<> attachEach(QList<QUrl> urls);
    QCoro::Task<> attach(QUrl url);
    void addFile(const ComposeAttachment &file);
    void surfaceUnsent(const std::optional<QString> &error);
    /// Whether there is more than the message began with.
    bool isBegun() const;
    QStringList fields() const;
    bool isReplaced() const;
    /// Whether what others leave in `AppState` for a message is for this one.
    bool isCurrent() const;

    QCoro::Task<> fill();
    void fillFromRequest();
    void finishFilling();
    void carryAttachments();
    void fillFromLink();
    /// Above what is quoted, and below what is written already.
    void placeSignature(const QString &written);
    void answerSharedItems();
    void takeInSharedItems();
    void setContent(const QString &html);

    std::shared_ptr<AppState> m_appState;
    const ComposeRequest m_request;
    const QString m_account;
    const QUuid m_presentation;
    ReadEditor m_readEditor;
    /// The message's fields once it was filled.
    QStringList m_filledFields;
    /// The text that nobody has touched, as the editor writes it; absent until the editor has shown it.
    std::optional<QString> m_untouchedText = QString();
    bool m_isTextTouched = false;
    bool m_didInitialize = false;
    bool m_isFilled = false;
    bool m_isLoadingTemplates = false;
    bool m_isSent = false;
    bool m_isClosed = false;
    /// How many groups of files are being read.
    int m_attaching = 0;
};
