// SPDX-License-Identifier: MIT
#include "desktop/DesktopFilePanels.h"

#include "app/ReplaceQuestion.h"
#include "desktop/FilePortal.h"
#include "support/SessionBus.h"
#include "support/TemporaryFolder.h"
#include "support/Widgets.h"
#include "ui/main/AlertSheet.h"

#include <QApplication>
#include <QDBusMessage>
#include <QFileDialog>
#include <QLineEdit>
#include <QSplitter>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>
#include <tuple>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

const SavePanel kExport{"Korvan Export", "Korvan_Backup.json", "json"};
const OpenPanel kImport{"Korvan Import", {"json"}};
const OpenPanel kKey{"SSH Key auswählen", {}};

// A user with a home of their own, who does one thing in each dialog that comes up.
class User final {
public:
    using Doing = std::function<void(QDialog&)>;

    User(std::initializer_list<Doing> doings) : m_doings(doings) {
        m_timer.callOnTimeout([this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialog == m_last) return;
            m_last = dialog;
            if (m_done == m_doings.size()) return dialog->reject(); // one too many
            m_doings[m_done++](*dialog);
            m_last = nullptr;
        });
        m_timer.start(10);
    }

    [[nodiscard]] bool hasSeenAll() const { return m_done == m_doings.size(); }

    // In a file panel: types the name and agrees.
    static Doing chooses(const std::string& name) {
        return [name](QDialog& dialog) {
            auto& panel = dynamic_cast<QFileDialog&>(dialog);
            panel.findChild<QLineEdit*>()->setText(toQString(name));
            QMetaObject::invokeMethod(&panel, "accept");
        };
    }
    // In the question before a file is replaced.
    static Doing says(const std::string& answer) {
        return [answer](QDialog& dialog) {
            EXPECT_TRUE(dynamic_cast<AlertSheet*>(&dialog));
            if (auto* button = buttonOf(dialog, answer)) click(button);
        };
    }
    // Notes where the panel stands.
    static Doing looks(std::vector<std::string>& folders) {
        return [&folders](QDialog& dialog) {
            folders.push_back(dynamic_cast<QFileDialog&>(dialog).directory().path().toStdString());
            dialog.reject();
        };
    }

private:
    std::vector<Doing> m_doings;
    std::size_t m_done = 0;
    QDialog* m_last = nullptr;
    QTimer m_timer;
};

// The user of a portal, which shows file panels of its own, agrees on the file, and Korvan has
// heard of it when this returns.
void answer(const SessionBus& bus, const std::filesystem::path& file) {
    const auto korvan = bus.connection("korvan");
    const auto portal = bus.connection("portal");
    auto response = QDBusMessage::createTargetedSignal(
        korvan.baseService(), u"/org/freedesktop/portal/desktop/request/1_2/t"_s,
        u"org.freedesktop.portal.Request"_s, u"Response"_s);
    const auto uri = QUrl::fromLocalFile(toQString(file.native())).toString(QUrl::FullyEncoded);
    portal.send(response << 0U << QVariantMap{{u"uris"_s, QStringList{uri}}});
    // In this order, the answers to both come after it.
    for (const auto& connection : {portal, korvan})
        connection.call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                       u"org.freedesktop.DBus"_s, u"GetId"_s));
}

class DesktopFilePanelsTest : public testing::Test {
protected:
    void SetUp() override {
        qputenv("HOME", home.path().c_str());
        std::filesystem::current_path("/");
    }
    void TearDown() override { qunsetenv("HOME"); }

    [[nodiscard]] std::string inHome(const std::string& name) const { return home.path() / name; }

    TemporaryFolder home;
    DesktopFilePanels panels{mayReplace};
};

} // namespace

TEST_F(DesktopFilePanelsTest, GiveANameItsTypeUnlessItEndsInIt) {
    const std::pair<std::string, std::string> names[] = {
        {"Korvan", "Korvan.json"},
        {"Korvan 1.10", "Korvan 1.10.json"},
        {"Korvan.json.alt", "Korvan.json.alt.json"},
        {"Korvanjson", "Korvanjson.json"},
        {"Köln.json", "Köln.json"},
        {"KORVAN.JSON", "KORVAN.JSON"}};
    for (const auto& [typed, written] : names) {
        const User user{User::chooses(typed)};
        EXPECT_EQ(panels.runSavePanel(kExport), inHome(written));
    }
}

TEST_F(DesktopFilePanelsTest, AskOnceAboutTheNameThatIsWritten) {
    const auto old = home.file("Korvan 1.10.json", "old");
    const User user{User::chooses("Korvan 1.10"), User::says("Abbrechen"),
                    User::chooses("Korvan 1.10.json"), User::says("Ersetzen")};
    EXPECT_EQ(panels.runSavePanel(kExport), old);
    EXPECT_TRUE(user.hasSeenAll());
}

TEST_F(DesktopFilePanelsTest, AskNothingThatAPortalHasAsked) {
    const auto old = home.file("Korvan 1.10.json", "old");
    const SessionBus bus;
    DesktopFilePanels portalPanels(mayReplace, DesktopFilePanels::Source::theme,
                                   bus.connection("korvan"));
    const auto choosesInPortal = [&](const std::string& name) {
        return [&bus, name, file = home.path() / name](QDialog& dialog) {
            answer(bus, file);
            User::chooses(name)(dialog);
        };
    };
    const auto save = [&](const User& user) {
        EXPECT_EQ(portalPanels.runSavePanel(kExport), old);
        EXPECT_TRUE(user.hasSeenAll());
    };
    save(User{choosesInPortal("Korvan 1.10.json")});
    // The portal's question was about another name.
    save(User{choosesInPortal("Korvan 1.10"), User::says("Ersetzen")});
    // What was agreed to once does not hold for the next time.
    save(User{User::chooses("Korvan 1.10.json"), User::says("Ersetzen")});
}

TEST_F(DesktopFilePanelsTest, AreQtsOwnWhereAChosenPortalIsMissing) {
    const SessionBus bus;
    for (const auto source :
         {DesktopFilePanels::Source::portal, DesktopFilePanels::Source::theme}) {
        bool isQts = false;
        const User user{[&isQts](QDialog& dialog) {
            isQts = dynamic_cast<QFileDialog&>(dialog).testOption(QFileDialog::DontUseNativeDialog);
            EXPECT_EQ(dialog.findChild<QSplitter*>()->sizes().first(), 160);
            EXPECT_FALSE(dialog.isSizeGripEnabled());
            dialog.reject();
        }};
        EXPECT_EQ(
            DesktopFilePanels(mayReplace, source, bus.connection("korvan")).runSavePanel(kExport),
            std::nullopt);
        EXPECT_EQ(isQts, source == DesktopFilePanels::Source::portal);
    }
}

TEST(FilePortalTheme, IsForDesktopsWithoutAThemeForQtAndIsNotInherited) {
    const std::tuple<const char*, const char*, bool> sessions[] = {
        {"GNOME", nullptr, true},  {"ubuntu:GNOME", nullptr, true},
        {"KDE", nullptr, false},   {"", nullptr, false},
        {"GNOME", "qt6ct", false}, {"KDE", "xdgdesktopportal", true}};
    const auto outer = qgetenv("XDG_CURRENT_DESKTOP");
    for (const auto& [desktop, theme, isChosen] : sessions) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        if (theme) qputenv("QT_QPA_PLATFORMTHEME", theme);
        EXPECT_EQ(FilePortalTheme().isChosen(), isChosen) << desktop;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORMTHEME"), QByteArray(theme)) << desktop;
        qunsetenv("QT_QPA_PLATFORMTHEME");
    }
    qputenv("XDG_CURRENT_DESKTOP", outer);
}

TEST_F(DesktopFilePanelsTest, OpenWhereSuchAFileWasChosenOrKeysLieOrInTheHomeFolder) {
    std::vector<std::string> seen;
    const auto looks = User::looks(seen);
    const auto choosesBackup = User::chooses("Sicherung/alt.json");
    const auto choosesKey = User::chooses("id_köln");
    const User user{looks, choosesBackup, looks, looks, looks, looks, choosesKey, looks};
    std::filesystem::create_directories(inHome("Sicherung"));
    const auto file = home.file("Sicherung/alt.json", "");
    (void)panels.runSavePanel(kExport);
    EXPECT_EQ(panels.runOpenPanel(kImport), file);
    (void)panels.runSavePanel(kExport);
    std::filesystem::remove_all(inHome("Sicherung"));
    (void)panels.runOpenPanel(kImport);
    (void)panels.runOpenPanel(kKey);
    std::filesystem::create_directories(inHome(".ssh"));
    const auto key = home.file(".ssh/id_köln", "");
    (void)panels.runOpenPanel(kKey);
    EXPECT_EQ(panels.runOpenPanel(kKey), key);
    (void)panels.runSavePanel(kExport); // no backup lands among the keys unnoticed
    EXPECT_EQ(seen, (std::vector{home.path().string(), inHome("Sicherung"), home.path().string(),
                                 home.path().string(), inHome(".ssh"), home.path().string()}));
}

} // namespace korvan
