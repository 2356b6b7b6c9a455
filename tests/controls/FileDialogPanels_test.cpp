#include "controls/FileDialogPanels.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

using namespace vexa;

namespace {

struct FilePanel : testing::Test {
    void create(const char* name) const {
        ASSERT_TRUE(QFile(folder.filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly));
    }
    /// What the operator does once a panel or question is open.
    void then(std::function<void(QDialog&)> operate) {
        QTimer::singleShot(0, &window, [operate = std::move(operate)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            operate(*dialog);
        });
    }
    static QLineEdit& nameField(QDialog& dialog) { return *dialog.findChild<QLineEdit*>(); }
    /// Enters a file of the test's folder, whichever folder the panel shows.
    void enter(QDialog& dialog, const QString& name) const {
        nameField(dialog).setText(folder.filePath(name));
        QTest::keyClick(&nameField(dialog), Qt::Key_Return);
    }
    /// The name of the panel's answer; "cancelled" if it is empty.
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
        then([](QDialog& question) {
            EXPECT_NE(qobject_cast<QMessageBox*>(&question), nullptr);
            QTest::keyClick(&question, Qt::Key_Escape);
        });
        enter(dialog, QStringLiteral("Show.final"));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(nameField(dialog).text(), QStringLiteral("Show.final.vexaB"));
        then([](QDialog& question) {
            dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
        });
        enter(dialog, QStringLiteral("Show.final"));
    });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), "Show.final.vexaB");
}

TEST_F(FilePanel, TheQuestionWhetherToReplaceShowsTheNameAsItIs) {
    const auto* name = "Day 1<img src=file:%2fdev%2fzero>.vexaB";
    create(name);
    then([&](QDialog& dialog) {
        then([&](QDialog& question) {
            const auto* label = question.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            EXPECT_TRUE(label->text().contains(QString::fromLatin1(name)));
            dynamic_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
        });
        enter(dialog, QString::fromLatin1(name));
    });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), name);
}

TEST_F(FilePanel, TheDialogsOwnQuestionsArePlainText) {
    then([this](QDialog& dialog) {
        then([](QDialog& question) {
            for (const auto* label : question.findChildren<QLabel*>())
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
            question.reject();
        });
        QMessageBox::warning(&dialog, {}, QStringLiteral("Delete “<b>x</b>”?"));
        dialog.reject();
    });
    panels.runSavePanel(proposed);
}

/// What the panel says when it refuses a name, in which "~" stands for many letters. The operator
/// then cancels.
struct Refused {
    const char* name;
    const char* reason; ///< how the reason begins
};

struct RefusedName : FilePanel, testing::WithParamInterface<Refused> {
    std::string refusal(const std::function<std::optional<QString>()>& runPanel) {
        auto name = QString::fromUtf8(GetParam().name);
        name.replace(QLatin1Char('~'), QString(250, QLatin1Char('n')));
        std::string said;
        then([&](QDialog& dialog) {
            then([&](QDialog& message) {
                said = dynamic_cast<QMessageBox&>(message).text().toStdString();
                message.reject();
            });
            enter(dialog, name);
            EXPECT_TRUE(dialog.isVisible()) << "the panel stays";
            dialog.reject();
        });
        EXPECT_EQ(answer(runPanel()), "cancelled");
        return said;
    }
};

class RefusedToSave : public RefusedName {};

TEST_P(RefusedToSave, IsNotTakenAndThePanelStays) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("Folder.vexaB")));
    const auto said = refusal([this] { return panels.runSavePanel(proposed); });
    EXPECT_EQ(said.substr(0, std::strlen(GetParam().reason)), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    Names, RefusedToSave,
    testing::Values(Refused{"~", "The name is too long."},
                    Refused{"~.vexaB", "The name is too long."},
                    Refused{"ффффффффффффффффффффффффффффффффффффффффффффффффффффффффффффффффффф"
                            "ффффффффффффффффффффффффффффффффффффффффффффффффффффффффффффф",
                            "The name is too long."},
                    Refused{"nowhere/Reels", "There is no folder “"},
                    Refused{"Folder", "“Folder.vexaB” is a folder."}));

class RefusedToOpen : public RefusedName {};

TEST_P(RefusedToOpen, IsNotTakenAndThePanelStays) {
    create("Reels.xml");
    create("Reels");
    const auto said = refusal([this] { return panels.runOpenPanel(); });
    EXPECT_EQ(said.substr(0, std::strlen(GetParam().reason)), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Names, RefusedToOpen,
                         testing::Values(Refused{"Reels.xml", "“Reels.xml” is not a batch list"},
                                         Refused{"Reels", "“Reels” is not a batch list"},
                                         Refused{"Reels.vexaB",
                                                 "There is no file “Reels.vexaB”."}));

TEST_F(FilePanel, TheLongestNameThatAFileCanHaveIsTaken) {
    const QString longest(255 - 6, QLatin1Char('n'));
    then([&](QDialog& dialog) { enter(dialog, longest); });
    EXPECT_EQ(answer(panels.runSavePanel(proposed)), longest.toStdString() + ".vexaB");
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
