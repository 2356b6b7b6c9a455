#include "controls/FileDialogPanels.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <deque>
#include <functional>

using namespace vexa;

namespace {

struct FilePanel : testing::Test {
    void create(const char* name) const {
        ASSERT_TRUE(QFile(folder.filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly));
    }
    /// What the operator does next, once a panel or question is open for it.
    void then(std::function<void(QDialog&)> operate) {
        QTimer::singleShot(0, &window, [operate = std::move(operate)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            operate(*dialog);
        });
    }
    static QLineEdit& nameField(QDialog& dialog) { return *dialog.findChild<QLineEdit*>(); }
    /// Enters a file of the test's folder, wherever the panel looks.
    void enter(QDialog& dialog, const QString& name) const {
        nameField(dialog).setText(folder.filePath(name));
        QTest::keyClick(&nameField(dialog), Qt::Key_Return);
    }
    /// The name of what the panel answers, "cancelled" when it answers nothing.
    std::string answer(const std::optional<QString>& path) const {
        return path ? QDir(folder.path()).relativeFilePath(*path).toStdString() : "cancelled";
    }

    const QTemporaryDir folder;
    QWidget window;
    FileDialogPanels panels{window};
    const QString proposed = QStringLiteral("Untitled Batch List.vexaB");
};

struct Typed {
    const char* name;
    const char* saved;
};

class SavedName : public FilePanel, public testing::WithParamInterface<Typed> {};

TEST_P(SavedName, HasTheExtensionExactlyOnce) {
    then([&](QDialog& dialog) { enter(dialog, QString::fromUtf8(GetParam().name)); });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), GetParam().saved);
}

INSTANTIATE_TEST_SUITE_P(Names, SavedName,
                         testing::Values(Typed{"Reels", "Reels.vexaB"},
                                         Typed{"Reels.vexaB", "Reels.vexaB"},
                                         Typed{"Show.final", "Show.final.vexaB"},
                                         Typed{"Reels.xml", "Reels.xml.vexaB"},
                                         Typed{"REELS.VEXAB", "REELS.VEXAB"},
                                         Typed{"100% #1 Плёнка", "100% #1 Плёнка.vexaB"}));

TEST_F(FilePanel, SavingProposesTheNameWithItsExtension) {
    then([&](QDialog& dialog) {
        EXPECT_EQ(nameField(dialog).text(), proposed);
        dialog.reject();
    });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), "cancelled");
}

TEST_F(FilePanel, AnExistingFileIsReplacedOnlyWhenConfirmed) {
    create("Show.final.vexaB");
    then([&](QDialog& dialog) {
        enter(dialog, QStringLiteral("Show.final"));
        then([&](QDialog& question) {
            EXPECT_NE(qobject_cast<QMessageBox*>(&question), nullptr);
            QTest::keyClick(&question, Qt::Key_Escape);
            then([&](QDialog& again) {
                EXPECT_EQ(nameField(again).text(), QStringLiteral("Show.final.vexaB"));
                enter(again, QStringLiteral("Show.final"));
                then([](QDialog& asked) {
                    dynamic_cast<QMessageBox&>(asked).button(QMessageBox::Yes)->click();
                });
            });
        });
    });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), "Show.final.vexaB");
}

TEST_F(FilePanel, OpeningTakesBatchListsThatAreThere) {
    create("50% & #1 – Плёнка.vexaB");
    then([&](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).nameFilters(),
                  QStringList(QStringLiteral("Batch lists (*.vexaB)")));
        enter(dialog, QStringLiteral("50% & #1 – Плёнка.vexaB"));
    });
    EXPECT_EQ(answer(panels.runOpenPanel()), "50% & #1 – Плёнка.vexaB");
}

} // namespace
