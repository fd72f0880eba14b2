#include "accounts/Secrets.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <stdexcept>
#include <vector>

namespace {

// 16 MiB and about 40 ms per guess.
constexpr std::uint64_t scryptCost = 1 << 14;
constexpr std::uint64_t scryptBlock = 8;
constexpr std::uint64_t scryptParallel = 1;
constexpr std::uint64_t scryptMemory = 64 * 1024 * 1024;
constexpr std::size_t hashBytes = 32;

std::string hex(const unsigned char *bytes, std::size_t size) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text;
}

std::string scryptHex(const std::string &password, const std::string &salt) {
    unsigned char hash[hashBytes];
    const auto *saltBytes = reinterpret_cast<const unsigned char *>(salt.data());
    if (EVP_PBE_scrypt(password.data(), password.size(), saltBytes, salt.size(), scryptCost, scryptBlock,
                       scryptParallel, scryptMemory, hash, sizeof hash) != 1)
        throw std::runtime_error("scrypt failed");
    return hex(hash, sizeof hash);
}

} // namespace

std::string randomHex(std::size_t bytes) {
    std::vector<unsigned char> random(bytes);
    if (RAND_bytes(random.data(), static_cast<int>(bytes)) != 1)
        throw std::runtime_error("no random bytes");
    return hex(random.data(), bytes);
}

std::string sha256Hex(const std::string &text) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    if (EVP_Digest(text.data(), text.size(), digest, &size, EVP_sha256(), nullptr) != 1)
        throw std::runtime_error("SHA-256 failed");
    return hex(digest, size);
}

std::string hashPassword(const std::string &password) {
    const auto salt = randomHex(16);
    return "scrypt$" + salt + "$" + scryptHex(password, salt);
}

bool passwordMatches(const std::string &password, const std::string &hash) {
    const auto first = hash.find('$');
    const auto second = hash.find('$', first + 1);
    const bool readable = first != std::string::npos && second != std::string::npos;
    const auto salt = readable ? hash.substr(first + 1, second - first - 1) : std::string("none");
    const auto expected = readable ? hash.substr(second + 1) : std::string();
    const auto actual = scryptHex(password, salt);
    return actual.size() == expected.size() && CRYPTO_memcmp(actual.data(), expected.data(), actual.size()) == 0;
}
