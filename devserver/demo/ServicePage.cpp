#include "demo/ServicePage.h"

#include "demo/MailText.h"

std::string ServicePage::html() const {
    return "<html><head><style>@media (prefers-color-scheme: dark) { .desk { background: #14171b !important; } .sheet "
           "{ background: #20252c !important; color: "
           "#e4e8ec !important; } }</style></head>\n<body class=\"desk\" "
           "style=\"margin:0;background:#f0f2f4\">\n<table "
           "width=\"100%\" "
           "cellpadding=\"0\" cellspacing=\"0\"><tr><td align=\"center\" style=\"padding:24px 8px\">\n<table "
           "width=\"560\" "
           "cellpadding=\"0\" cellspacing=\"0\" style=\"max-width:560px;font-family:'Noto Sans',Arial,sans-serif\">\n"
           "<tr><td style=\"background:" +
           color + ";color:#fff;padding:16px 28px;font-size:18px;font-weight:bold;border-radius:8px 8px 0 0\">" +
           MailText::escapedHTML(brand) +
           "</td></tr>\n<tr><td class=\"sheet\" style=\"background:#fff;color:#262c33;padding:28px;font-size:15px;"
           "line-height:1.6\">\n<h1 style=\"font-size:22px;margin:0 0 14px\">" +
           MailText::escapedHTML(heading) + "</h1>\n" + body +
           "\n</td></tr>\n<tr><td style=\"padding:16px 28px;font-size:12px;color:#7a838d\">" + smallPrint +
           "</td></tr>\n</table></td></tr></table></body></html>\n";
}

std::string ServicePage::bigNumber(const std::string &number) {
    return "<p "
           "style=\"font-size:34px;letter-spacing:8px;font-weight:bold;text-align:center;background:#f3f5f8;color:#"
           "1d2731;"
           "padding:18px;border-radius:8px;margin:20px 0\">" +
           number + "</p>\n";
}
