#include "send/InlineImages.h"

#include <gtest/gtest.h>

namespace {

const std::string image = "data:image/png;base64,QUJD";

/// The page with its Content-IDs numbered.
std::string lifted(const std::string &html, std::vector<InlineImage> *images = nullptr) {
    auto result = liftImages(html, "c.example");
    for (std::size_t i = 0; i < result.images.size(); ++i) {
        const auto &id = result.images[i].contentID;
        EXPECT_TRUE(id.ends_with("@c.example"));
        for (auto found = result.html.find(id); found != std::string::npos; found = result.html.find(id))
            result.html.replace(found, id.size(), std::to_string(i + 1));
    }
    if (images)
        *images = result.images;
    return result.html;
}

TEST(InlineImageTest, ImagesLeaveTheAttributesThatShowThem) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"<img src=\"" + image + "\">", "<img src=\"cid:1\">"},
        {"<IMG alt='>' SRC = '" + image + "'/>", "<IMG alt='>' SRC = 'cid:1'/>"},
        {"<img src=" + image + " alt=x>", "<img src=cid:1 alt=x>"},
        {"<td background=\"" + image + "\">", "<td background=\"cid:1\">"},
        {"<p style=\"a:url(&quot;" + image + "&quot;);b:url('" + image + "')\">",
         "<p style=\"a:url(&quot;cid:1&quot;);b:url('cid:1')\">"},
        {"<img src=\"" + image + "\"><img src=\"data:image/gif;base64,QUJD\">",
         "<img src=\"cid:1\"><img src=\"cid:2\">"},
        {"a < b <img src=\"" + image, "a < b <img src=\"cid:1"},
    };
    for (const auto &[html, expected] : cases)
        EXPECT_EQ(lifted(html), expected);
}

TEST(InlineImageTest, WhatIsNoImageOfThePageStays) {
    for (const std::string &html :
         {image, "<p>" + image + "</p>", "<!-- <img src=\"" + image + "\"> -->", "<img alt=\"" + image + "\">",
          std::string("<img src=\"data:image/png;base64,\">"), std::string("<img src=\"data:image/svg+xml,<svg>\">"),
          std::string("<img src=\"data:text/html;base64,QUJD\">"), std::string("<img src=\"data:image/"),
          std::string("<img src"), std::string("<img ="), std::string("<img src=>x"), std::string("<"),
          std::string("<a"), std::string("<!--")})
        EXPECT_EQ(lifted(html), html);
}

TEST(InlineImageTest, BytesComeOutOfEveryFormOfBase64) {
    std::vector<InlineImage> images;
    lifted("<img src=\"data:image/SVG+XML;base64,Pj4\n+Pw==\"><img src=\"data:image/x;base64,Pj4%2BPw%3D%3D\">",
           &images);
    ASSERT_EQ(images.size(), 2U);
    EXPECT_EQ(images[0].contentType, "image/svg+xml");
    EXPECT_EQ(images[0].bytes, ">>>?");
    EXPECT_EQ(images[1].bytes, ">>>?");
}

} // namespace
