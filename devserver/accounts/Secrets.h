#pragma once

#include <string>

/// `bytes` random bytes as lower-case hexadecimal digits.
std::string randomHex(std::size_t bytes);

std::string sha256Hex(const std::string &text);

/// A salted scrypt hash that carries its own parameters.
std::string hashPassword(const std::string &password);

/// Takes the same time whether or not the password fits. An unreadable hash never fits.
bool passwordMatches(const std::string &password, const std::string &hash);
