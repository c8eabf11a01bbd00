// The parts of the web page, as they stand in the files beside this one.
#pragma once

#include <string>

extern const std::string page_html, page_css, page_js;
