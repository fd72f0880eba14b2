#include "ServerTest.h"

namespace {

class FaviconTest : public ServerTest {
protected:
    httplib::Result icon(const std::string &domain) {
        return m_client->Get("/faviconV2?client=SOCIAL&type=FAVICON&url=https://" + domain + "&size=64");
    }
};

} // namespace

TEST_F(FaviconTest, AboutHalfOfTheDomainsHaveAnIcon) {
    start();
    const std::vector<std::string> domains{
        "corvanite.example",       "portofmerrow.example", "nordkai-stahl.example",    "merrowbay-council.example",
        "opentides.example",       "lanternpost.example",  "saltmarsh-survey.example", "brightwick.example",
        "hollowayandsons.example", "petrak.example"};
    std::set<std::string> pictures;
    int icons = 0;
    for (const auto &domain : domains) {
        const auto answer = icon(domain);
        EXPECT_EQ(answer->body, icon(domain)->body) << domain;
        if (answer->status == 404)
            continue;
        ++icons;
        EXPECT_EQ(answer->status, 200);
        EXPECT_EQ(answer->get_header_value("Content-Type"), "image/png");
        EXPECT_EQ(answer->body.substr(0, 8), "\x89PNG\r\n\x1a\n");
        EXPECT_GT(answer->body.size(), 100U);
        pictures.insert(answer->body);
    }
    EXPECT_GE(icons, 3);
    EXPECT_LE(icons, 7);
    EXPECT_EQ(pictures.size(), static_cast<std::size_t>(icons)) << "each looks different";
}

TEST_F(FaviconTest, FailuresCanBeAskedFor) {
    start({"--fail", "faviconV2=503"});
    EXPECT_EQ(icon("corvanite.example")->status, 503);
}
