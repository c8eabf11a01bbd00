// Built with sanitizers only: what the font libraries and SDL's D-Bus keep for the life of the process, and what
// gettext's library forgets to free (the context of an entry), is no leak of ours.

extern "C" const char *__lsan_default_options();
extern "C" const char *__lsan_default_suppressions();

// Standard error belongs to the tool's findings.
extern "C" const char *__lsan_default_options()
{
    return "print_suppressions=0";
}

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig.so\nleak:libpango\nleak:libgettextpo.so\nleak:libdbus-1.so\n";
}
