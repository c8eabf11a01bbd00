#include "desktop/session.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <sys/stat.h>

#include "common/text.h"
#include "osd_menu_post.h"
#include "render/png.h"
#include "rules/report.h"
#include "script/script.h"
#include "store/output.h"

static constexpr std::chrono::milliseconds BUBBLE_TIME(3000), SAVE_DELAY(1000), SAVE_AGAIN(30000), WATCH_INTERVAL(500);
static constexpr size_t CALLS_KEPT = 32;

// What happens again stands there already.
static void tell(Session &session, const std::string &notice)
{
    for (const std::string &line : parts_of(notice, '\n'))
        if (std::find(session.notices.begin(), session.notices.end(), line) == session.notices.end()) {
            session.notices.push_back(line);
            session.is_changed = true;
        }
}

// What fails is told, and the session goes on.
template <class Work> static void attempt(Session &session, const Work &work)
{
    try {
        work();
    } catch (const std::exception &e) {
        tell(session, e.what());
    }
}

// Line by line, so that a killed session leaves all of it.
static void record(Session &session, const std::string &statement)
{
    if (statement.empty())
        return;
    std::chrono::duration<double> waited = Clock::now() - session.recorded;
    session.recorded = Clock::now();
    session.record << "wait " << std::fixed << std::setprecision(2) << waited.count() << "\n"
                   << printable(statement) << std::endl;
}

// A page asks for all its values at each paint: the count of the last paint is enough.
static void take_calls(Session &session)
{
    static const char *const operations[] = {"", "INIT", "GET", "SET", "ENTER"};
    session.values_asked = 0;
    for (const auto &[item, operation, value] : host.calls)
        if (operation == ACTION_OP_GET)
            session.values_asked++;
        else
            session.calls.push_back(std::string(operations[operation]) + " " + item + " " + std::to_string(value));
    host.calls.clear();
    while (session.calls.size() > CALLS_KEPT)
        session.calls.pop_front();
}

// The keys of the menu act on what the last draw found, so a draw follows whatever happens.
static void paint_page(Session &session)
{
    repaint();
    take_calls(session);
    tell(session, std::exchange(host.notice, {}));
    session.is_changed = true;
}

static std::string next_language(Session &)
{
    const std::vector<std::string> &languages = host.menu.languages;
    auto now = std::find(languages.begin(), languages.end(), host.language);
    size_t next = static_cast<size_t>(now - languages.begin()) + 1;
    return change_language(languages[next % languages.size()]) ? "language " + script_word(host.language) : "";
}

// Painted in place of the page, which is there again when it is shown.
static std::string next_bubble(Session &session)
{
    if (host.bubbles.empty())
        throw Failure("the menu has no bubbles");
    std::string name = host.bubbles[session.bubbles_shown++ % host.bubbles.size()];
    session.bubble = image_of(paint_bubble(name));
    session.bubble_end = Clock::now() + BUBBLE_TIME;
    tell(session, "Bubble " + name);
    return "bubble " + script_word(name);
}

static std::string switch_help_block(Session &session)
{
    session.shows_help_block = !session.shows_help_block;
    osdmenu_meeting_camera_helpline_enable(session.shows_help_block);
    return session.shows_help_block ? "help on" : "help off";
}

// Under the first name that is free.
static std::string save_picture(Session &session)
{
    int number = 1;
    auto name = [&] { return "osdmenu-" + std::to_string(number) + ".png"; };
    while (std::filesystem::exists(name()))
        number++;
    replace_file(name(), png_of(session_picture(session)));
    tell(session, "Saved as " + name());
    return "";
}

static void save_changes(Session &session)
{
    if (host.settings == session.saved)
        return;
    write_settings(host.settings_path, host.settings);
    session.saved = host.settings;
}

// A Failure tells what is wrong with them. What the old files were found with already is no reason.
static void look_at_new_files(const Session &session)
{
    Findings findings;
    MenuDirectory menu = open_menu_directory(session.directory, findings);
    if (!findings.sorted().empty() && session.findings.sorted().empty())
        throw Failure(report(findings, ReportFormat::text));
    sound_resources(menu.directory_of(menu.has_language(host.language) ? host.language : menu.language));
}

// The process starts anew for new files: it keeps its first configuration as long as it lives. A build replaces the
// directory, which may be the one that we are in.
static std::string load_again(Session &session)
{
    std::filesystem::current_path(session.working_directory);
    save_changes(session);
    try {
        look_at_new_files(session);
    } catch (const std::exception &e) {
        throw Failure(std::string("The new files are not sound, so the old menu stays.\n") + e.what());
    }
    session.end = SessionEnd::new_files;
    return "";
}

const std::vector<DesktopKey> desktop_keys = {
    {"up", "Up", "the row above", nullptr},
    {"down", "Down", "the row below", nullptr},
    {"left", "Left", "a lower value", nullptr},
    {"right", "Right", "a higher value", nullptr},
    {"ok", "Enter", "OK", nullptr},
    {"back", "Backspace", "one level up", nullptr},
    {"menu", "Home", "the top list", nullptr},
    {"l", "L", "the next language", next_language},
    {"b", "B", "the next bubble", next_bubble},
    {"h", "H", "the help block on or off", switch_help_block},
    {"a", "A", "the AI mode page", [](Session &) { return open_ai_mode(), std::string("aimode"); }},
    {"i", "I", "the information page", [](Session &) { return open_information(), std::string("information"); }},
    {"p", "P", "a picture into a PNG file", save_picture},
    {"r", "R", "loads the files again", load_again},
    {"?", "?", "these keys, or not",
     [](Session &session) { return session.shows_keys = !session.shows_keys, std::string(); }},
    {"+", "+ -", "a larger or smaller page, in a window", [](Session &) { return std::string(); }},
    {"q", "Q", "leaves, as Escape does in a window",
     [](Session &session) { return session.end = SessionEnd::left, std::string(); }},
};

const DesktopKey *desktop_key(const std::string &key)
{
    for (const DesktopKey &each : desktop_keys)
        if (key == each.key)
            return &each;
    return nullptr;
}

void press_key(Session &session, const std::string &name)
{
    const DesktopKey *key = desktop_key(name);
    if (!key)
        return;
    session.notices.clear();
    if (key->press != save_picture) // which may be one of a bubble
        session.bubble.reset();
    attempt(session, [&] {
        if (!key->press)
            press(name);
        record(session, key->press ? key->press(session) : name);
    });
    paint_page(session);
}

// A file that is not there counts too.
static std::vector<long> file_stamps()
{
    std::vector<long> stamps;
    auto add = [&](const std::string &path) {
        struct stat file = {};
        stat(path.c_str(), &file);
        for (long number : {static_cast<long>(file.st_ino), file.st_size, file.st_mtim.tv_sec, file.st_mtim.tv_nsec})
            stamps.push_back(number);
    };
    add(host.menu.path + "menu.json");
    for (const std::string &language : host.menu.languages)
        for (const char *file : RESOURCE_FILES)
            add(host.menu.directory_of(language) + file);
    return stamps;
}

// Only files that have stayed the same from one look to the next: a copy takes its time.
static void look_for_new_files(Session &session)
{
    std::vector<long> files = file_stamps();
    bool is_settled = files == std::exchange(session.seen_files, files);
    if (!is_settled || files == std::exchange(session.loaded_files, files))
        return;
    session.notices.clear();
    attempt(session, [&] { load_again(session); });
}

// What can't be saved is told, and tried again after a while.
static void save_in_time(Session &session, Clock::time_point now)
{
    if (host.settings == session.saved)
        session.save_due = now + SAVE_DELAY;
    if (now < session.save_due)
        return;
    session.save_due = now + SAVE_AGAIN;
    attempt(session, [&] { save_changes(session); });
}

void start_session(Session &session)
{
    osdmenu_meeting_camera_helpline_enable(session.shows_help_block);
    session.saved = host.settings;
    session.loaded_files = session.seen_files = file_stamps();
    host.calls.clear();
    paint_page(session);
}

void pass_time(Session &session, Clock::time_point now)
{
    if (session.bubble && now >= session.bubble_end) {
        session.bubble.reset();
        session.is_changed = true;
    }
    save_in_time(session, now);
    if (now >= session.watch_due) {
        session.watch_due = now + WATCH_INTERVAL;
        look_for_new_files(session);
    }
}

void finish_session(Session &session)
{
    save_changes(session);
    if (session.record.is_open() && !session.record)
        throw Failure("what was done could not be recorded");
}

Image session_picture(const Session &session)
{
    Image picture = image_of(painted_view());
    if (session.bubble)
        put_in_middle(picture, *session.bubble);
    lay_over(picture, session.backdrop);
    return picture;
}
