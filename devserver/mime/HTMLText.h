#pragma once

#include <string>

/// The readable text of an HTML page: no tags, styles, scripts or comments; entities decoded; blocks on lines of
/// their own.
std::string textOfHTML(const std::string &html);

/// `text` as HTML that shows it.
std::string escapeHTML(const std::string &text);
