#include "menu/po_file.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>

#include "common/text.h"

namespace
{

using PoFile = std::unique_ptr<struct po_file, void (*)(po_file_t)>;
using PoIterator = std::unique_ptr<struct po_message_iterator, void (*)(po_message_iterator_t)>;

// The library's handlers get no argument of ours.
Findings *receiver;

// Warnings are about encodings, on which a rule here is stricter. After a fatal error a handler must not return.
void receive(int severity, po_message_t, const char *file, size_t line, size_t column, int, const char *text)
{
    if (severity == PO_SEVERITY_FATAL_ERROR)
        throw Failure(text);
    auto number = [](size_t value) { return value == static_cast<size_t>(-1) ? 1 : static_cast<int>(value); };
    if (severity == PO_SEVERITY_ERROR)
        receiver->error({file ? file : "", number(line), number(column)}, text);
}

void receive_pair(int severity, po_message_t one, const char *file, size_t line, size_t column, int multiline,
                  const char *text, po_message_t, const char *, size_t, size_t, int, const char *)
{
    receive(severity, one, file, line, column, multiline, text);
}

const po_xerror_handler handler{receive, receive_pair};

} // namespace

static PoFile parse(const std::string &path, Findings &faults)
{
    receiver = &faults;
    PoFile po(nullptr, po_file_free);
    try {
        po.reset(po_file_read(path.c_str(), &handler));
    } catch (const Failure &failure) {
        faults.error({path}, failure.what());
    }
    const char *header = po ? po_file_domain_header(po.get(), nullptr) : nullptr;
    if (!faults.has_errors() && (!header || !strcasestr(header, "charset=UTF-8")))
        faults.error({path, 1, 1}, "there is no header that says charset=UTF-8",
                     header ? "another encoding becomes this one with: msgconv -t UTF-8 -o " + path + " " + path : "");
    return po;
}

// The library keeps the file's order but not the lines. Whatever writes such files begins a line with each msgid.
static std::vector<int> lines_of_entries(const std::string &path)
{
    std::vector<int> lines;
    std::ifstream in(path);
    std::string line;
    for (int number = 1; std::getline(in, line); number++)
        if (line.starts_with("msgid ") || line.starts_with("#~ msgid "))
            lines.push_back(number);
    return lines;
}

bool read_po_file(const std::string &path, Findings &findings, const VisitEntry &visit)
{
    Findings faults;
    PoFile po = parse(path, faults);
    findings.append(faults);
    if (faults.has_errors())
        return false;
    std::vector<int> lines = lines_of_entries(path);
    PoIterator iterator(po_message_iterator(po.get(), nullptr), po_message_iterator_free);
    for (size_t i = 0; po_message_t message = po_next_message(iterator.get()); i++)
        if (!po_message_is_obsolete(message))
            visit(message, i < lines.size() ? lines[i] : 0);
    return true;
}

// The library writes to a path only: here that of a file without a name.
std::string po_text(const std::vector<po_message_t> &messages)
{
    PoFile po(po_file_create(), po_file_free);
    PoIterator iterator(po_message_iterator(po.get(), nullptr), po_message_iterator_free);
    for (po_message_t message : messages)
        po_message_insert(iterator.get(), message);
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::tmpfile(), std::fclose);
    std::string path = file ? "/dev/fd/" + std::to_string(fileno(file.get())) : "";
    Findings faults;
    receiver = &faults;
    po_file_write(po.get(), path.c_str(), &handler);
    return read_file(path).value_or("");
}
