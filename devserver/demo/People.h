#pragma once

#include <string>

/// How a person's mail program writes.
enum class WritingStyle {
    Plain,  ///< text with quotes
    Flowed, ///< text in the format of RFC 3676
    Rich,   ///< text and HTML, quotes as blocks
    Office, ///< text and HTML, the earlier message below a block of its headers
};

struct DemoPerson {
    std::string name, address;
    /// Minutes east of Greenwich.
    int utcOffset = 0;
    WritingStyle style = WritingStyle::Plain;
    std::string signature = {};

    bool operator==(const DemoPerson &other) const { return address == other.address; }
    /// What stands behind the "@".
    std::string domain() const { return address.substr(address.find('@') + 1); }
};

/// The people whom Dana Okafor writes with.
struct People {
    static const DemoPerson dana;
    // Colleagues at Corvanite, a small firm of harbour engineers
    static const DemoPerson ilias, marta, tobias, priya, sunniva, henk;
    // Clients, authorities and suppliers
    static const DemoPerson rosalind, anselm, quentin, yusra, olive;
    // Family and friends
    static const DemoPerson mum, kelechi, amara, bea, jonas;
};
