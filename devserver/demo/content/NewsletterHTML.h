#pragma once

#include <array>
#include <string>
#include <vector>

/// Markup that mail designs are made of: tables all the way down.
struct NewsletterHTML {
    /// A whole document around a table of 600 pixels. @param style rules for the head @param ground page background
    static std::string page(const std::string &style, const std::string &preheader, const std::string &ground,
                            const std::string &rows);
    /// A row of one cell. @param style inline rules of the cell
    static std::string row(const std::string &style, const std::string &content, const std::string &cssClass = "");
    /// A row of two cells of equal width.
    static std::string columns(const std::string &style, const std::string &left, const std::string &right);
    /// A table of three columns under a heading, every second line tinted.
    static std::string schedule(const std::string &font, const std::string &color, const std::string &tint,
                                const std::string &heading, const std::vector<std::array<std::string, 3>> &lines);
    static std::string button(const std::string &text, const std::string &address, const std::string &style);
    static std::string image(const std::string &address, int width, int height, const std::string &description);
    /// One pixel that tells the sender who read the message when.
    static std::string trackingPixel(const std::string &host);
    /// Address, preferences and a way out.
    static std::string footer(const std::string &style, const std::string &publisher, const std::string &host);
};
