#pragma once

/// What the toolbar offers: what a person reads, and what the page is told.
struct EditorChoice {
    const char *label;
    const char *value;
};

inline constexpr EditorChoice editorFontSizes[] = {
    {"Small", "12px"}, {"Normal", "15px"}, {"Large", "18px"}, {"Huge", "24px"}};

inline constexpr EditorChoice editorTextColors[] = {
    {"Black", "#000000"}, {"Dark Gray", "#4b5563"}, {"Red", "#ef4444"},    {"Orange", "#f97316"},
    {"Green", "#22c55e"}, {"Blue", "#3b82f6"},      {"Purple", "#8b5cf6"}, {"Pink", "#ec4899"}};

inline constexpr EditorChoice editorHighlightColors[] = {{"None", "transparent"}, {"Yellow", "#fef08a"},
                                                         {"Green", "#bbf7d0"},    {"Blue", "#bfdbfe"},
                                                         {"Pink", "#fbcfe8"},     {"Orange", "#fed7aa"}};
