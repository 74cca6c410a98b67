// SPDX-License-Identifier: MIT
//
// Works in a real main window by key, wheel and mouse, and measures each step from the event to the
// painted frame. The lists are kept in memory, so that nothing but the window is measured.
//
// It needs no display; what is painted offscreen is what would be sent to one.
#include "Samples.h"
#include "Timings.h"
#include "model/RecordList.h"
#include "state/ContentView.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/Widgets.h"
#include "ui/main/ContentWindow.h"
#include "ui/style/KorvanStyle.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace korvan {

namespace {

constexpr double kFrame = 1000.0 / 60;
constexpr std::size_t kCategories = 10;
constexpr std::size_t kFewestSteps = 60;

// Sees whether anything was painted.
class PaintWatch final : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    bool hasPainted = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        hasPainted = hasPainted || event->type() == QEvent::Paint;
        return false;
    }
};

[[noreturn]] void giveUp(const std::string& why) {
    std::fprintf(stderr, "nothing is measured: %s\n", why.c_str());
    std::exit(EXIT_FAILURE);
}

// A window over a number of profiles and as many commands, and what a user does in it.
class Bench final {
public:
    explicit Bench(std::size_t count);

    // Measures everything and prints a line for each. Answers whether all of it was quick enough.
    bool run();

private:
    template <class Widget>
    Widget& find(std::string_view name) {
        auto* widget = named<Widget>(*m_window, name);
        if (!widget) giveUp("no " + std::string(name));
        return *widget;
    }

    // From an event to the end of the painting that it leads to.
    template <class Event>
    void step(Event&& event);
    void measure(const char* what, void (Bench::*steps)());

    void typeWord();
    void wheelInCommands() { wheel(m_commands); }
    void wheelInProfiles() { wheel(m_table); }
    void wheel(QAbstractScrollArea& area);
    void dragCommands() { drag(m_commands); }
    void dragProfiles() { drag(m_table); }
    void drag(QAbstractScrollArea& area);
    void walkProfiles();
    void clickProfiles();
    void selectAll();
    void clickFilters();
    void resizeWindow();
    void reload();

    std::size_t m_count;
    MemoryKeyValueStore m_values;
    RecordingDesktop m_desktop;
    ContentView m_view;
    std::unique_ptr<ContentWindow> m_window;
    QLineEdit& m_search;
    QAbstractScrollArea& m_commands;
    QTableView& m_table;
    QListView& m_sidebar;
    PaintWatch m_paintWatch;
    std::vector<double> m_times;
    std::vector<double> m_processorTimes; // without what other programs take
    bool m_isQuick = true;
};

template <class Record>
void put(MemoryKeyValueStore& values, const char* key, const std::vector<Record>& records) {
    values.values[key] = encodeList(records);
}

MemoryKeyValueStore& filled(MemoryKeyValueStore& values, std::size_t count) {
    put(values, "ssh_profiles_v3", samples::makeProfiles(count));
    put(values, "ssh_snippets_v1", samples::makeSnippets(count));
    put(values, "ssh_categories_v1", samples::makeCategories(kCategories));
    return values;
}

std::unique_ptr<ContentWindow> makeWindow(ContentView& view, FilePanels& filePanels) {
    auto window = std::make_unique<ContentWindow>(
        view, filePanels, [](QWidget* parent) { return new QDialog(parent); });
    activate(*window);
    return window;
}

Bench::Bench(std::size_t count)
    : m_count(count), m_view(filled(m_values, count), m_desktop.desktop()),
      m_window(makeWindow(m_view, m_desktop.filePanels)),
      m_search(find<QLineEdit>("Befehle suchen")), m_commands(find<QAbstractScrollArea>("Befehle")),
      m_table(find<QTableView>("Profile")), m_sidebar(find<QListView>("Kategorien")) {
    const bool isComplete =
        m_view.store.profiles().size() == count && m_view.snippetStore.snippets().size() == count;
    if (!isComplete) giveUp("the window does not hold the records");
    m_view.selectProfile(m_view.store.profiles().front());
    QCoreApplication::processEvents();
}

template <class Event>
void Bench::step(Event&& event) {
    m_paintWatch.hasPainted = false;
    const double before = processorTime();
    const Stopwatch stopwatch;
    event();
    QCoreApplication::processEvents();
    // What was put off until the first was done belongs to it.
    QCoreApplication::processEvents();
    m_times.push_back(stopwatch.milliseconds());
    m_processorTimes.push_back(processorTime() - before);
    if (!m_paintWatch.hasPainted) giveUp("an event that should change the picture did not");
}

void Bench::measure(const char* what, void (Bench::*steps)()) {
    (this->*steps)(); // the first time pays for fonts and drawings that stay
    m_times.clear();
    m_processorTimes.clear();
    while (m_times.size() < kFewestSteps)
        (this->*steps)();
    const double limit = m_count > 10'000 ? 6 * kFrame : kFrame;
    const double most = percentile(m_times, 0.95);
    const bool isQuick = most <= limit;
    m_isQuick = m_isQuick && isQuick;
    std::printf("| %s | %zu | %.2f | %.2f | %.2f | %.1f | %s |\n", what, m_count, median(m_times),
                most, percentile(m_processorTimes, 0.95), limit, isQuick ? "yes" : "NO");
    std::fflush(stdout);
}

bool Bench::run() {
    measure("key press in the search field", &Bench::typeWord);
    measure("wheel step over the commands", &Bench::wheelInCommands);
    measure("wheel step over the profiles", &Bench::wheelInProfiles);
    measure("commands scrolled to anywhere", &Bench::dragCommands);
    measure("profiles scrolled to anywhere", &Bench::dragProfiles);
    measure("arrow key in the profiles", &Bench::walkProfiles);
    measure("click on a profile", &Bench::clickProfiles);
    measure("all profiles selected, and one again", &Bench::selectAll);
    measure("click on a filter", &Bench::clickFilters);
    measure("window made wider and narrower", &Bench::resizeWindow);
    measure("reload", &Bench::reload);
    return m_isQuick;
}

// A word that some commands contain, letter by letter, and back again.
void Bench::typeWord() {
    m_search.setFocus();
    const QByteArray word = "protokoll f";
    for (const char letter : word)
        step([&] { QTest::keyClick(&m_search, letter); });
    if (m_view.filteredSnippets().size() != m_count / 10) giveUp("the search finds other commands");
    for (qsizetype i = 0; i < word.size(); ++i)
        step([&] { QTest::keyClick(&m_search, Qt::Key_Backspace); });
}

void Bench::wheel(QAbstractScrollArea& area) {
    area.verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    const QPointF position(area.viewport()->rect().center());
    for (int i = 0; i < 60; ++i) {
        const int way = i < 30 ? -120 : 120;
        step([&] {
            QWheelEvent event(position, area.viewport()->mapToGlobal(position), {}, {0, way},
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(area.viewport(), &event);
        });
    }
}

void Bench::drag(QAbstractScrollArea& area) {
    QScrollBar* bar = area.verticalScrollBar();
    for (int i = 0; i < 60; ++i) {
        const int place = static_cast<int>(qint64{bar->maximum()} * (i * 37 % 60) / 60);
        if (place != bar->value()) step([&] { bar->setValue(place); });
    }
    bar->setValue(0);
    QCoreApplication::processEvents();
}

void Bench::walkProfiles() {
    m_table.setFocus();
    for (int i = 0; i < 60; ++i)
        step([&] { QTest::keyClick(&m_table, i < 30 ? Qt::Key_Down : Qt::Key_Up); });
}

QPoint textOf(const QAbstractItemView& list, int row) {
    return list.visualRect(list.model()->index(row, 0)).topLeft() + QPoint(20, 10);
}

void Bench::clickProfiles() {
    for (const int row : {3, 9, 5, 12, 1})
        step([&] {
            QTest::mouseClick(m_table.viewport(), Qt::LeftButton, Qt::NoModifier,
                              textOf(m_table, row));
        });
    if (m_view.selectedProfile() != &m_view.store.profiles()[1]) giveUp("clicks select others");
}

void Bench::selectAll() {
    step([&] { QTest::keyClick(&m_table, Qt::Key_A, Qt::ControlModifier); });
    if (m_view.selection->ids().size() != m_count) giveUp("not everything is selected");
    step([&] { QTest::keyClick(&m_table, Qt::Key_Down); });
}

// All, none, two categories.
void Bench::clickFilters() {
    for (const int row : {1, 3, 5, 0})
        step([&] {
            QTest::mouseClick(m_sidebar.viewport(), Qt::LeftButton, Qt::NoModifier,
                              textOf(m_sidebar, row));
        });
    if (*m_view.categoryFilter != CategoryFilter::all()) giveUp("clicks choose other filters");
}

void Bench::resizeWindow() {
    const QSize size = m_window->size();
    for (int i = 1; i <= 10; ++i)
        step([&] { m_window->resize(size.width() + 10 * (i % 5), size.height()); });
}

void Bench::reload() {
    const std::uint64_t revision = m_view.store.revision();
    step([&] { click(buttonOf(*m_window, "Neu laden")); });
    if (m_view.store.revision() == revision) giveUp("nothing was loaded");
}

} // namespace

} // namespace korvan

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(new korvan::KorvanStyle);
    std::puts("| step | profiles and commands | median, ms | 95 %, ms | 95 %, ms of processor "
              "time | limit, ms | kept |\n|---|---|---|---|---|---|---|");
    bool isQuick = true;
    for (const std::size_t count : {1'000U, 10'000U, 100'000U})
        isQuick = korvan::Bench(count).run() && isQuick;
    return isQuick ? EXIT_SUCCESS : EXIT_FAILURE;
}
