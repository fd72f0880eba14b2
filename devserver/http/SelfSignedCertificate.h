#pragma once

#include <filesystem>

struct CertificateFiles {
    std::filesystem::path certificate;
    std::filesystem::path key;
};

/// The certificate for localhost and 127.0.0.1 that lies in `folder`, made there if missing.
CertificateFiles selfSignedCertificate(const std::filesystem::path &folder);
