#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"

namespace {
struct Letter {
    DemoPerson from;
    When when;
    std::string charset, subject, text;
    PartEncoding encoding = PartEncoding::Base64;
    std::string flags = "S";
};

std::vector<Letter> westernLetters() {
    return {
        {{"Jürgen Großmann", "grossmann@wasserstand-nord.example", 60},
         daysAgo(3, 7, 50),
         "iso-8859-1",
         "Rückfrage zu den Pegelständen",
         "Liebe Frau Okafor,\n\nIhre Werte für Büsumer Tief weichen an drei Tagen um genau eine Stunde ab. Könnte es "
         "sein,\ndass die Sommerzeit zu früh endete?\n\nHerzliche Grüße von der Küste\nJürgen Großmann\n",
         PartEncoding::QuotedPrintable},
        {{"Hélène Marchetti", "helene@digue-ouest.example", 60},
         daysAgo(5, 13, 20),
         "iso-8859-15",
         "Réunion de chantier : le brise-lames",
         "Chère Dana,\n\nla réunion est déplacée à jeudi, 14 h, à la capitainerie. Le devis révisé s'élève à 12 400 "
         "€,\n"
         "transport compris. Pensez à vos bottes, la marée sera haute !\n\nÀ très bientôt,\nHélène\n",
         PartEncoding::QuotedPrintable},
        {{"Íñigo Echeverría", "inigo@puertoclaro.example", 60},
         daysAgo(10, 10, 10),
         "utf-8",
         "¿Cuándo publicáis los datos de otoño?",
         "Hola Dana:\n\nen Puerto Claro usamos vuestras tablas cada mañana. ¿Sabéis ya cuándo saldrán las de otoño?\n"
         "El alumnado de mi clase quiere compararlas con las suyas.\n\nUn saludo muy cordial,\nÍñigo\n"},
        {{"Żaneta Jabłońska", "zaneta@latarnia.example", 60},
         daysAgo(13, 12, 0),
         "iso-8859-2",
         "Zdjęcia latarni: już gotowe",
         "Cześć Dana,\n\nzdjęcia latarni są już gotowe. Najładniejsze zrobiliśmy o świcie, gdy łódź pilotowa\nwracała "
         "do "
         "portu. Przyślę je w przyszłym tygodniu pocztą.\n\nŚciskam,\nŻaneta\n",
         PartEncoding::QuotedPrintable},
        {{"Ελένη Παπαδάκη", "eleni@thalassa.example", 120},
         daysAgo(20, 8, 30),
         "iso-8859-7",
         "Η στάθμη της θάλασσας στο λιμάνι",
         "Αγαπητή Ντάνα,\n\nο παλιός σταθμός μέτρησης λειτουργεί ξανά. Η διαφορά από τον νέο είναι μόλις δύο "
         "εκατοστά.\n"
         "Σε περιμένουμε την άνοιξη για καφέ στην προκυμαία.\n\nΜε εκτίμηση,\nΕλένη\n"},
    };
}

std::vector<Letter> easternLetters() {
    return {
        {{"Вера Соловьёва", "vera@morskoy-bereg.example", 180},
         daysAgo(6, 9, 0),
         "koi8-r",
         "Таблицы приливов за прошлый год",
         "Здравствуйте, Дана!\n\nСпасибо за открытые данные. Мы сравнили ваши таблицы с нашими журналами:\nрасхождение "
         "не "
         "больше двух сантиметров. Можно ли опубликовать сравнение?\n\nС уважением,\nВера\n"},
        {{"Борис Ладогин", "ladogin@prichal.example", 180},
         daysAgo(23, 11, 35),
         "windows-1251",
         "Счёт за ремонт лебёдки",
         "Добрый день!\n\nЛебёдка готова, проверили под нагрузкой. Счёт отправим почтой в понедельник.\n\nБорис "
         "Ладогин\n",
         PartEncoding::EightBit},
        {{"ليلى منصور", "layla@mina-alnoor.example", 180},
         daysAgo(2, 11, 5),
         "utf-8",
         "موعد زيارة الميناء يوم الخميس",
         "مرحبا دانا،\n\nيسعدنا استقبالكم في الميناء يوم الخميس في الساعة 10:30 صباحا. سنعرض عليكم جهاز القياس الجديد\n"
         "(الطراز TG-200)، ثم نشرب الشاي معا.\n\nمع أطيب التحيات،\nليلى منصور\n"},
        {{"נועם ברקאי", "noam@nemal.example", 120},
         daysAgo(8, 7, 25),
         "windows-1255",
         "שאלה על נתוני הגאות",
         "שלום דנה,\n\nבנינו לוח גאות קטן לכיתה ו׳. האם מותר לנו להשתמש בנתונים שלכם (קובץ CSV)?\nהילדים מבקשים לדעת "
         "למה הים עולה פעמיים ביום.\n\nתודה רבה,\nנועם\n"},
        {{"林晓梅", "lin@gangkou.example", 480},
         daysAgo(4, 2, 40),
         "gb18030",
         "关于潮位数据接口的问题",
         "您好,Dana:\n\n我们正在为港口的小学生制作一块潮位显示屏。请问接口每小时可以请求多少次?\n如果需要登记,"
         "请告诉我们怎么做。\n\n"
         "谢谢!\n林晓梅\n"},
        {{"高橋美咲", "takahashi@minatomirai-sokuryo.example", 540},
         daysAgo(7, 1, 15),
         "iso-2022-jp",
         "検潮所の見学について",
         "Dana様\n\nいつもお世話になっております。来月の見学の件ですが、十五日の午前中はいかがでしょうか。\n雨の場合は"
         "室内で模型をご覧いただけます。"
         "\n\nどうぞよろしくお願いいたします。\n高橋美咲\n",
         PartEncoding::SevenBit},
        {{"한지우", "jiwoo@badatgil.example", 540},
         daysAgo(12, 3, 30),
         "euc-kr",
         "방파제 사진 보내드립니다",
         "안녕하세요 Dana 님,\n\n지난주에 찍은 방파제 사진을 곧 보내드리겠습니다. 날씨가 맑아서 등대까지 잘 "
         "보였습니다.\n\n감사합니다.\n한지우 드림\n"},
        {{"Tuğçe Yıldırım", "tugce@kiyi-atolye.example", 180},
         daysAgo(31, 9, 40),
         "iso-8859-9",
         "Şamandıra fotoğrafları",
         "Merhaba Dana,\n\nşamandıralar boyandı, güneşte çok güzel görünüyor. İyi çalışmalar!\n\nTuğçe\n"},
    };
}

std::vector<Letter> emojiLetters() {
    return {
        {People::kelechi, hoursAgo(11, 20), "utf-8", "🎺🚢 rehearsal footage 😂",
         "Turn the sound down first. 🙉 He has now asked for a bigger trumpet.\n", PartEncoding::Base64, ""},
        {People::amara, daysAgo(9, 21, 12), "utf-8",
         "👩🏾‍🚀🏳️‍🌈👨‍👩‍👧‍👦 costume ideas, vote now",
         "1️⃣ astronaut\n2️⃣ lighthouse\n3️⃣ the gull\n\nI vote 3️⃣.\n"},
        {{"☕ Corner Café", "hi@cornercafe.example", 0},
         daysAgo(18, 7, 0),
         "utf-8",
         "☕ + 🥐 = 4.50 before nine",
         "Every weekday until the end of the month. 🥐\n"},
    };
}
} // namespace

void addLanguages(Mailbag &bag) {
    for (const auto &letters : {westernLetters(), easternLetters(), emojiLetters()})
        for (const Letter &letter : letters)
            addNotice(bag, {letter.from,
                            letter.when,
                            letter.subject,
                            textPart(letter.text, {.charset = letter.charset, .encoding = letter.encoding}),
                            DemoFolder::inbox,
                            letter.flags,
                            {},
                            letter.charset});
}
