// A menu that someone is trying: what each of their keys does, what is kept for them, and what there is to tell.
#pragma once

#include <chrono>
#include <deque>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "desktop/picture.h"
#include "host/host.h"
#include "rules/findings.h"

using Clock = std::chrono::steady_clock;

enum class SessionEnd { none, left, new_files };

struct Session {
    std::string directory;         // as it was given
    std::string working_directory; // that it counts from
    Findings findings;             // of the directory as it was loaded
    std::string trace_path;
    Backdrop backdrop;
    std::ofstream record; // a script of what is done; nothing is recorded unless it is open
    Clock::time_point recorded = Clock::now();

    bool shows_help_block = false, shows_keys = false;
    std::optional<Image> bubble; // over the page
    Clock::time_point bubble_end;
    size_t bubbles_shown = 0;

    std::vector<std::string> notices; // lines that stand until the next key
    std::deque<std::string> calls;    // the latest at the end, but for those that ask for values
    size_t values_asked = 0;          // by the last paint
    bool is_changed = true;           // since it was last shown
    SessionEnd end = SessionEnd::none;

    Settings saved; // as in their file
    Clock::time_point save_due, watch_due;
    std::vector<long> loaded_files, seen_files; // their stamps
};

// The one table of keys: it is what the keys do and what the panel says about them.
struct DesktopKey {
    const char *key;   // as screens report it
    const char *label; // on a keyboard
    const char *meaning;
    std::string (*press)(Session &session); // gives the statement of a script; null for a key of the menu itself
};
extern const std::vector<DesktopKey> desktop_keys;
const DesktopKey *desktop_key(const std::string &key);

// The host is started already, and stands where the session begins.
void start_session(Session &session);

// A key that means nothing does nothing.
void press_key(Session &session, const std::string &key);

// What happens by itself, to be called a few times in a second: a bubble goes, settings are saved, new files are found.
void pass_time(Session &session, Clock::time_point now);

// Settings that aren't saved yet are now. A Failure when they can't be, or what is recorded wasn't.
void finish_session(Session &session);

// The page as someone sees it, opaque.
Image session_picture(const Session &session);
