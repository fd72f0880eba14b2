#pragma once

#include <string>

/// The plain card in which shops and services write: a coloured bar, a heading, a body, small print.
struct ServicePage {
    std::string brand, color, heading, body, smallPrint = {};

    std::string html() const;
    /// A code or a number that is to be read at a glance.
    static std::string bigNumber(const std::string &number);
};
