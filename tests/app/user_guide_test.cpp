#include "app/MainWindow.h"
#include "document/Bundle.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"
#include "support/CleanDefaults.h"
#include "support/ManualRunLoop.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QMenu>
#include <QMenuBar>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using Row = std::vector<std::string>;

QString guide() {
    return Bundle::mainBundle().pathForResource(u"user-guide"_s, u"html"_s).value_or(QString());
}

/// Calls `visit` with every element of the guide, which must be well-formed XML.
void forEachElement(const std::function<void(QXmlStreamReader&)>& visit) {
    QFile file(guide());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "the guide stands beside the program";
    QXmlStreamReader xml(&file);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement)
            visit(xml);
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString() << ", line "
                                 << xml.lineNumber();
}

std::string attribute(const QXmlStreamReader& xml, const char* name) {
    return xml.attributes().value(QLatin1String(name)).toString().toStdString();
}

/// The rows of the table with this id, without its heading.
std::set<Row> rowsOfTable(const char* id) {
    std::set<Row> rows;
    bool inTable = false;
    Row row;
    forEachElement([&](QXmlStreamReader& xml) {
        if (xml.name() == u"table")
            inTable = attribute(xml, "id") == id;
        if (!inTable || xml.name() != u"td")
            return;
        row.push_back(xml.readElementText(QXmlStreamReader::IncludeChildElements).toStdString());
        if (row.size() == 3)
            rows.insert(std::exchange(row, {}));
    });
    return rows;
}

TEST(UserGuide, NamesItsInfoByItsFile) {
    const auto bundle = Bundle::mainBundle();
    const QFileInfo file(guide());
    EXPECT_EQ(bundle.infoString(u"KelUserGuideName"_s), file.baseName());
    EXPECT_EQ(bundle.infoString(u"KelUserGuideType"_s), file.suffix());
}

TEST(UserGuide, ShowsPicturesThatAreThereInDoubleSize) {
    int pictures = 0;
    forEachElement([&](const QXmlStreamReader& xml) {
        if (xml.name() != u"img")
            return;
        ++pictures;
        const auto source = QString::fromStdString(attribute(xml, "src"));
        const QImageReader image(QFileInfo(guide()).dir().filePath(source));
        EXPECT_EQ(image.size(), 2 * QSize(std::stoi(attribute(xml, "width")),
                                          std::stoi(attribute(xml, "height"))))
            << source.toStdString();
        EXPECT_NE(attribute(xml, "alt"), "");
    });
    EXPECT_GT(pictures, 0);
}

TEST(UserGuide, LinksToChaptersThatItHas) {
    std::set<std::string> chapters;
    std::set<std::string> links;
    forEachElement([&](const QXmlStreamReader& xml) {
        if (xml.name() == u"h2")
            chapters.insert('#' + attribute(xml, "id"));
        if (xml.name() == u"a")
            links.insert(attribute(xml, "href"));
    });
    EXPECT_EQ(links, chapters);
}

TEST(UserGuide, ListsTheShortcutsOfAllCommands) {
    const CleanDefaults defaults;
    NoMidiSystem midi;
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    ManualRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller(window.outlets(), runLoop);
    controller.applicationDidFinishLaunching();
    window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());

    std::set<Row> commands;
    for (const auto* menu : window.menuBar()->actions())
        for (const auto* item : menu->menu()->actions())
            if (!item->shortcut().isEmpty())
                commands.insert({item->shortcut().toString().toStdString(),
                                 menu->text().remove(QLatin1Char('&')).toStdString(),
                                 item->text().remove(QLatin1Char('&')).toStdString()});
    EXPECT_EQ(rowsOfTable("shortcuts"), commands);
    Vexa_MIDI_Manager::setMidiSystem(nullptr);
}

} // namespace
