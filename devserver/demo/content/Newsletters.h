#pragma once

#include <functional>
#include <string>
#include <vector>

#include "demo/Mailbag.h"
#include "demo/People.h"

struct NewsletterItem {
    std::string title, text;
    /// A price, a date or a section, by the design.
    std::string label = {};
};

struct NewsletterIssue {
    When when;
    std::string subject, headline, lead;
    std::vector<NewsletterItem> items;
    std::string folder = DemoFolder::newsletters;
    std::string flags = "S";
};

/// One publisher: who writes, how a page of theirs looks, and what they sent.
struct Newsletter {
    DemoPerson publisher;
    std::function<std::string(const NewsletterIssue &)> page;
    std::vector<NewsletterIssue> issues;
};

Newsletter quayLetter();
Newsletter bakeryNews();
Newsletter openDataDigest();
Newsletter railDeals();
