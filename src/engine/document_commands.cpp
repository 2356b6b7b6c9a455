#include "engine/Vexa_RemoteAppDelegate.h"

#include <utility>

namespace vexa {

namespace {

Alert question(const QString& text, bool previouslySaved, const QString& fileTitle,
               const QString& neverSaved, std::vector<QString> buttons) {
    return {text.arg(previouslySaved ? fileTitle : QStringLiteral("the current batch list")),
            previouslySaved ? QStringLiteral("It has changed since it was last saved.")
                            : neverSaved,
            std::move(buttons)};
}

} // namespace

/// Asks one question at a time. The session may end, or the window may close, while one is open;
/// a second question then counts as unanswered.
int Vexa_RemoteAppDelegate::ask(const Alert& question) {
    if (std::exchange(m_asking, true))
        return alertUnanswered;
    const int answer = m_outlets.alerts->runModal(question);
    m_asking = false;
    return answer;
}

int Vexa_RemoteAppDelegate::askToSave() {
    return ask(
        question(QStringLiteral("Do you want to save %1 before proceeding?"), previouslySaved(),
                 fileTitle(), QStringLiteral("It has never been saved."),
                 {QStringLiteral("Save"), QStringLiteral("Don't Save"), QStringLiteral("Cancel")}));
}

bool Vexa_RemoteAppDelegate::saveFirst() {
    m_outlets.batchTable->commitEditing();
    if (!dirty())
        return true;
    const int answer = askToSave();
    // "Save" proceeds even if saving failed.
    if (answer == alertFirstButton)
        saveDocument();
    return answer != alertThirdButton && answer != alertUnanswered;
}

bool Vexa_RemoteAppDelegate::windowShouldClose() {
    m_outlets.batchTable->commitEditing();
    if (!dirty())
        return true;
    const int answer = askToSave();
    if (answer == alertFirstButton) {
        saveDocument();
        return !dirty(); // cancelling the save panel keeps the window open
    }
    return answer == alertSecondButton;
}

bool Vexa_RemoteAppDelegate::askRevert() {
    if (!dirty())
        return true;
    const int answer =
        ask(question(QStringLiteral("Do you want to revert to the saved version of %1?"),
                     previouslySaved(), fileTitle(), QStringLiteral("It has never been saved"),
                     {QStringLiteral("Revert"), QStringLiteral("Cancel")}));
    return answer != alertSecondButton && answer != alertUnanswered;
}

/// Asks to save first. A run that starts during the question keeps its list.
bool Vexa_RemoteAppDelegate::mayReplaceList() {
    return saveFirst() && m_transportState == transport::stopped;
}

void Vexa_RemoteAppDelegate::newDocument() {
    if (!mayReplaceList())
        return;
    m_document.clear();
    listReplaced();
}

void Vexa_RemoteAppDelegate::openDocument() {
    if (!mayReplaceList())
        return;
    const auto path = m_outlets.filePanels->runOpenPanel();
    if (!path || m_transportState != transport::stopped)
        return;
    openListWithURL(*path);
    openListWithURL(*path);
}

bool Vexa_RemoteAppDelegate::openFile(const QString& path) {
    if (mayReplaceList())
        openListWithURL(path);
    return true;
}

void Vexa_RemoteAppDelegate::openListWithURL(const QString& path) {
    m_document.open(path);
    listReplaced();
    m_outlets.recentDocuments->noteNewRecentDocument(path);
}

void Vexa_RemoteAppDelegate::listReplaced() {
    m_outlets.batchTable->reloadData();
    fitBatchControls();
    setListTitle();
}

void Vexa_RemoteAppDelegate::revertDocumentToSaved() {
    if (askRevert())
        openListWithURL(url());
}

void Vexa_RemoteAppDelegate::saveDocument() {
    if (previouslySaved())
        saveDocumentWithURL(url());
    else
        saveDocumentAs();
}

void Vexa_RemoteAppDelegate::saveDocumentAs() {
    const auto path =
        m_outlets.filePanels->runSavePanel(QStringLiteral("Untitled Batch List.vexaB"));
    if (!path)
        return;
    saveDocumentWithURL(*path);
    setListTitle();
}

void Vexa_RemoteAppDelegate::saveDocumentWithURL(const QString& path) {
    m_outlets.batchTable->commitEditing();
    m_document.save(path);
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::setListTitle() {
    m_document.retitle();
    m_outlets.window->setTitle(QStringLiteral("Vexa Remote: %1").arg(fileTitle()));
    Q_EMIT stateChanged();
}

} // namespace vexa
