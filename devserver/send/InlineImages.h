#pragma once

#include <string>
#include <vector>

struct InlineImage {
    /// Without angle brackets.
    std::string contentID;
    /// "image/png"
    std::string contentType;
    std::string bytes;
};

/// A page that names its images by "cid:" instead of holding them.
struct LiftedImages {
    std::string html;
    std::vector<InlineImage> images;
};

/// Takes the Base64 `data:` images out of the attributes `src`, `background` and `style` of a page, because receivers
/// do not show them there. Equal images become one. Content-IDs end in "@" and `domain`.
LiftedImages liftImages(const std::string &html, const std::string &domain);
