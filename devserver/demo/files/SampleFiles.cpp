#include "demo/files/SampleFiles.h"

#include <archive.h>
#include <archive_entry.h>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "demo/MailText.h"

namespace {
std::string pageContent(const std::string &title, const std::vector<std::string> &lines) {
    std::string out = "BT /F1 20 Tf 60 770 Td (" + title + ") Tj /F1 11 Tf 0 -36 Td 16 TL\n";
    for (const std::string &line : lines)
        out += "(" + line + ") Tj T*\n";
    return out + "ET\n";
}

std::string tenDigits(size_t offset) {
    const std::string digits = std::to_string(offset);
    return std::string(10 - digits.size(), '0') + digits;
}

std::string littleEndian(uint32_t value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>(value >> 8 * i & 255);
    return out;
}

void require(int result, archive *writer) {
    if (result != ARCHIVE_OK)
        throw std::runtime_error(archive_error_string(writer));
}

void addEntry(archive *writer, const std::string &path, const std::string &bytes) {
    const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(), archive_entry_free);
    archive_entry_set_pathname(entry.get(), path.c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(bytes.size()));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_mtime(entry.get(), 1700000000, 0);
    require(archive_write_header(writer, entry.get()), writer);
    archive_write_data(writer, bytes.data(), bytes.size());
}
} // namespace

std::string SampleFiles::pdf(const std::string &title, const std::vector<std::string> &lines) {
    const std::string content = pageContent(title, lines);
    const std::vector<std::string> objects = {
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R /Resources << /Font << /F1 5 0 R >> >> "
        ">>",
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "endstream",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
    std::string out = "%PDF-1.4\n", table = "0000000000 65535 f \n";
    for (size_t i = 0; i < objects.size(); ++i) {
        table += tenDigits(out.size()) + " 00000 n \n";
        out += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::string size = std::to_string(objects.size() + 1);
    return out + "xref\n0 " + size + "\n" + table + "trailer\n<< /Size " + size + " /Root 1 0 R >>\nstartxref\n" +
           std::to_string(out.size()) + "\n%%EOF\n";
}

std::string SampleFiles::zip(const std::vector<std::pair<std::string, std::string>> &entries) {
    const std::unique_ptr<archive, decltype(&archive_write_free)> writer(archive_write_new(), archive_write_free);
    std::string out(64 * 1024, '\0');
    for (const auto &[path, bytes] : entries)
        out.resize(out.size() + bytes.size() + 1024);
    size_t used = 0;
    require(archive_write_set_format_zip(writer.get()), writer.get());
    archive_write_set_bytes_in_last_block(writer.get(), 1);
    require(archive_write_open_memory(writer.get(), out.data(), out.size(), &used), writer.get());
    for (const auto &[path, bytes] : entries)
        addEntry(writer.get(), path, bytes);
    require(archive_write_close(writer.get()), writer.get());
    out.resize(used);
    return out;
}

std::string SampleFiles::docx(const std::vector<std::string> &paragraphs) {
    std::string body;
    for (const std::string &paragraph : paragraphs)
        body += "<w:p><w:r><w:t>" + MailText::escapedHTML(paragraph) + "</w:t></w:r></w:p>";
    const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
    return zip(
        {{"[Content_Types].xml",
          xml + R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
                R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
                R"(<Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.)"
                R"(wordprocessingml.document.main+xml"/></Types>)"},
         {"_rels/.rels",
          xml + R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
                R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/)"
                R"(officeDocument" Target="word/document.xml"/></Relationships>)"},
         {"word/document.xml",
          xml + R"(<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:body>)" +
              body + "</w:body></w:document>"}});
}

std::string SampleFiles::wav(int seconds) {
    constexpr int rate = 8000;
    std::string samples;
    for (int i = 0; i < rate * seconds; ++i)
        samples += static_cast<char>(128 + static_cast<int>(60 * std::sin(i * 2 * 3.14159265 * 330 / rate)));
    const auto size = static_cast<uint32_t>(samples.size());
    return "RIFF" + littleEndian(36 + size, 4) + "WAVEfmt " + littleEndian(16, 4) + littleEndian(1, 2) +
           littleEndian(1, 2) + littleEndian(rate, 4) + littleEndian(rate, 4) + littleEndian(1, 2) +
           littleEndian(8, 2) + "data" + littleEndian(size, 4) + samples;
}

std::string SampleFiles::tideTableCSV() {
    std::string out = "station,hour,level_m\n";
    for (int hour = 0; hour < 24; ++hour) {
        std::array<char, 48> line{};
        std::snprintf(line.data(), line.size(), "merrow-outer-mole,%02d:00,%.2f\n", hour,
                      2.4 + 1.7 * std::sin(hour * 0.506 + 0.6));
        out += line.data();
    }
    return out;
}
