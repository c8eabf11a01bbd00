// gettext's PO files through its library.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gettext-po.h>

#include "rules/findings.h"

// Calls back for the entries in use, the header among them. False, and told, when the file can't be taken.
using VisitEntry = std::function<void(po_message_t message, int line)>;
bool read_po_file(const std::string &path, Findings &findings, const VisitEntry &visit);

// What a file of these messages holds. It takes them over.
std::string po_text(const std::vector<po_message_t> &messages);
