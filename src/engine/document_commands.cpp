#include "document/list_file.h"
#include "engine/Vexa_RemoteAppDelegate.h"

#include <QFileInfo>

namespace vexa {

namespace {

const QString untitled = QStringLiteral("Untitled Batch List");

Alert question(const QString& text, bool previouslySaved, const QString& fileTitle,
               const QString& neverSaved, std::vector<QString> buttons) {
    return {text.arg(previouslySaved ? fileTitle : QStringLiteral("the current batch list")),
            previouslySaved ? QStringLiteral("It has changed since it was last saved.")
                            : neverSaved,
            std::move(buttons)};
}

} // namespace

int Vexa_RemoteAppDelegate::askToSave() {
    return m_outlets.alerts->runModal(
        question(QStringLiteral("Do you want to save %1 before proceeding?"), m_previouslySaved,
                 m_fileTitle, QStringLiteral("It has never been saved."),
                 {QStringLiteral("Save"), QStringLiteral("Don't Save"), QStringLiteral("Cancel")}));
}

bool Vexa_RemoteAppDelegate::saveFirst() {
    if (!m_dirty)
        return true;
    const int answer = askToSave();
    // "Save" goes ahead whatever became of the saving.
    if (answer == alertFirstButton)
        saveDocument();
    return answer != alertThirdButton && answer != alertUnanswered;
}

bool Vexa_RemoteAppDelegate::windowShouldClose() {
    if (!m_dirty)
        return true;
    const int answer = askToSave();
    if (answer == alertFirstButton) {
        saveDocument();
        return !m_dirty; // a save panel that was cancelled keeps the window open
    }
    return answer == alertSecondButton;
}

bool Vexa_RemoteAppDelegate::askRevert() {
    if (!m_dirty)
        return true;
    const int answer = m_outlets.alerts->runModal(
        question(QStringLiteral("Do you want to revert to the saved version of %1?"),
                 m_previouslySaved, m_fileTitle, QStringLiteral("It has never been saved"),
                 {QStringLiteral("Revert"), QStringLiteral("Cancel")}));
    return answer != alertSecondButton && answer != alertUnanswered;
}

void Vexa_RemoteAppDelegate::newDocument() {
    if (!saveFirst())
        return;
    m_batchStripeData->clearBatchList();
    m_outlets.batchTable->reloadData();
    handleBatchControlEnabling();
    m_dirty = false;
    m_previouslySaved = false;
    m_url = QString();
    setListTitle();
}

void Vexa_RemoteAppDelegate::openDocument() {
    if (!saveFirst())
        return;
    if (const auto path = m_outlets.filePanels->runOpenPanel()) {
        openListWithURL(*path);
        openListWithURL(*path);
    }
}

bool Vexa_RemoteAppDelegate::openFile(const QString& path) {
    if (saveFirst() && m_transportState == transport::stopped)
        openListWithURL(path);
    return true;
}

void Vexa_RemoteAppDelegate::openListWithURL(const QString& path) {
    m_batchStripeData->clearBatchList(); // memory for two lists may be more than there is
    m_batchStripeData->replaceBatchList(readListFile(path));
    m_outlets.batchTable->reloadData();
    handleBatchControlEnabling();
    m_outlets.recentDocuments->noteNewRecentDocument(path);
    m_dirty = false;
    m_previouslySaved = true;
    m_url = path;
    setListTitle();
}

void Vexa_RemoteAppDelegate::revertDocumentToSaved() {
    if (askRevert())
        openListWithURL(m_url);
}

void Vexa_RemoteAppDelegate::saveDocument() {
    if (m_previouslySaved)
        saveDocumentWithURL(m_url);
    else
        saveDocumentAs();
}

void Vexa_RemoteAppDelegate::saveDocumentAs() {
    const auto path = m_outlets.filePanels->runSavePanel(untitled + QStringLiteral(".vexaB"));
    if (!path)
        return;
    saveDocumentWithURL(*path);
    setListTitle();
}

void Vexa_RemoteAppDelegate::saveDocumentWithURL(const QString& path) {
    // A list counts as saved whether or not it could be written.
    writeListFile(path, m_batchStripeData->batchList());
    m_dirty = false;
    m_previouslySaved = true;
    m_url = path;
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::setListTitle() {
    m_fileTitle =
        m_url.isNull() ? untitled : QFileInfo(m_url).fileName().section(QLatin1Char('.'), 0, 0);
    m_outlets.window->setTitle(QStringLiteral("Vexa Remote: %1").arg(m_fileTitle));
    Q_EMIT stateChanged();
}

} // namespace vexa
