// What resource files hold, told in full: a line of text or a JSON object for each thing found.
//
// The text is written from the JSON, so neither tells more than the other. The same files give the same bytes.
#pragma once

#include "store/resource_reader.h"

struct InspectedLanguage {
    std::string name;
    std::string directory; // as the caller named it
    Resources resources;
};

enum class InspectionFormat { text, json };

// Items stand as the library orders them, which prints while it does.
std::string inspection_report(const std::vector<InspectedLanguage> &languages, InspectionFormat format);

// What is odd and yet no damage: the library loads it, and a person should look at it.
std::vector<Fault> notes_on(const Resources &resources);
