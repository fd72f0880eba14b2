#include "demo/content/NewsletterHTML.h"

#include "demo/MailText.h"

namespace {
constexpr const char *tableStart =
    R"(<table role="presentation" width="100%" cellpadding="0" cellspacing="0" border="0")";

/// Fills the line below the subject in message lists, so that no mark-up of the page shows there.
std::string preheaderBlock(const std::string &text) {
    std::string padding;
    for (int i = 0; i < 60; ++i)
        padding += "&#847;&zwnj;&nbsp;";
    return "<div style=\"display:none;font-size:1px;line-height:1px;max-height:0;max-width:0;opacity:0;overflow:hidden;"
           "mso-hide:all\">" +
           MailText::escapedHTML(text) + padding + "</div>\n";
}
} // namespace

std::string NewsletterHTML::page(const std::string &style, const std::string &preheader, const std::string &ground,
                                 const std::string &rows) {
    return R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN" "http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd">
<html xmlns="http://www.w3.org/1999/xhtml" lang="en">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<style type="text/css">
body { margin: 0; padding: 0; -webkit-text-size-adjust: 100%; }
table { border-collapse: collapse; mso-table-lspace: 0; mso-table-rspace: 0; }
img { border: 0; outline: none; text-decoration: none; display: block; }
@media only screen and (max-width: 620px) {
  .container { width: 100% !important; }
  .half { display: block !important; width: 100% !important; }
}
)" + style +
           "</style>\n</head>\n<body class=\"ground\" style=\"margin:0;padding:0;background:" + ground + "\">\n" +
           preheaderBlock(preheader) + tableStart + " class=\"ground\" style=\"background:" + ground + "\"><tr>\n" +
           "<td align=\"center\" style=\"padding:24px 8px\">\n<table role=\"presentation\" class=\"container\" "
           "width=\"600\" "
           "cellpadding=\"0\" cellspacing=\"0\" border=\"0\" style=\"width:600px;max-width:600px\">\n" +
           rows + "</table>\n</td></tr></table>\n</body>\n</html>\n";
}

std::string NewsletterHTML::row(const std::string &style, const std::string &content, const std::string &cssClass) {
    return "<tr><td class=\"" + cssClass + "\" style=\"" + style + "\">\n" + content + "\n</td></tr>\n";
}

std::string NewsletterHTML::columns(const std::string &style, const std::string &left, const std::string &right) {
    const std::string cell = "<td class=\"half\" width=\"50%\" valign=\"top\" style=\"" + style + "\">\n";
    return std::string("<tr><td>") + tableStart + "><tr>\n" + cell + left + "\n</td>\n" + cell + right +
           "\n</td>\n</tr></table></td></tr>\n";
}

std::string NewsletterHTML::schedule(const std::string &font, const std::string &color, const std::string &tint,
                                     const std::string &heading, const std::vector<std::array<std::string, 3>> &lines) {
    const std::string cell =
        "<td class=\"schedule\" style=\"padding:9px 12px;font-size:14px;line-height:1.4;" + font + "color:" + color;
    std::string out = "<div style=\"font-size:18px;font-weight:bold;margin-bottom:10px;" + font + "color:" + color +
                      "\" class=\"schedule\">" + heading + "</div>\n" + tableStart + ">\n";
    for (size_t i = 0; i < lines.size(); ++i) {
        const std::string ground = i % 2 ? ";background:transparent" : ";background:" + tint;
        out += "<tr>" + cell + ground + ";white-space:nowrap;font-weight:bold\">" + lines[i][0] + "</td>\n" + cell +
               ground + ";width:100%\">" + lines[i][1] + "</td>\n" + cell + ground +
               ";white-space:nowrap;text-align:right\" align=\"right\">" + lines[i][2] + "</td></tr>\n";
    }
    return out + "</table>\n";
}

std::string NewsletterHTML::button(const std::string &text, const std::string &address, const std::string &style) {
    return "<table role=\"presentation\" cellpadding=\"0\" cellspacing=\"0\" border=\"0\"><tr><td style=\"" + style +
           "\"><a href=\"" + address + "\" style=\"color:inherit;text-decoration:none;display:inline-block\">" +
           MailText::escapedHTML(text) + "</a></td></tr></table>\n";
}

std::string NewsletterHTML::image(const std::string &address, int width, int height, const std::string &description) {
    return "<img src=\"" + address + "\" width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
           "\" alt=\"" + MailText::escapedHTML(description) +
           "\" style=\"display:block;width:100%;max-width:" + std::to_string(width) + "px;height:auto\">\n";
}

std::string NewsletterHTML::trackingPixel(const std::string &host) {
    return "<img src=\"https://open." + host + "/o.gif?u=8f3a2c71&amp;m=5521\" width=\"1\" height=\"1\" alt=\"\" " +
           "style=\"display:block;width:1px;height:1px\">";
}

std::string NewsletterHTML::footer(const std::string &style, const std::string &publisher, const std::string &host) {
    return row(style,
               "You receive this letter because dana@corvanite.example asked for it.<br>\n" + publisher +
                   ", 14 Chandler's Row, Merrow<br><br>\n<a href=\"https://" + host +
                   "/view\" style=\"color:inherit\">Read in the browser</a> &nbsp;&middot;&nbsp; <a href=\"https://" +
                   host +
                   "/preferences\" style=\"color:inherit\">Preferences</a> &nbsp;&middot;&nbsp; <a href=\"https://" +
                   host + "/unsubscribe\" style=\"color:inherit\">Unsubscribe</a>\n" + trackingPixel(host),
               "footer");
}
