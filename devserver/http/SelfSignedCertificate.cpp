#include "http/SelfSignedCertificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;
using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

void require(bool success, const char *what) {
    if (!success)
        throw std::runtime_error(std::string("cannot make the TLS certificate: ") + what);
}

void addExtension(X509 *certificate, int kind, const char *value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> extension(
        X509V3_EXT_conf_nid(nullptr, &context, kind, value), X509_EXTENSION_free);
    require(extension && X509_add_ext(certificate, extension.get(), -1), value);
}

Certificate signedCertificate(EVP_PKEY *key) {
    constexpr long tenYears = 10L * 365 * 24 * 3600;
    Certificate certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), tenYears);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME *name = X509_get_subject_name(certificate.get());
    const auto *host = reinterpret_cast<const unsigned char *>("localhost");
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host, -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(certificate.get(), NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1");
    require(X509_sign(certificate.get(), key, EVP_sha256()) > 0, "signing failed");
    return certificate;
}

File openForOwner(const std::filesystem::path &path) {
    File file(std::fopen(path.c_str(), "wb"), std::fclose);
    require(file != nullptr, path.c_str());
    std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    return file;
}

} // namespace

CertificateFiles selfSignedCertificate(const std::filesystem::path &folder) {
    const CertificateFiles files{folder / "certificate.pem", folder / "key.pem"};
    if (std::filesystem::exists(files.certificate) && std::filesystem::exists(files.key))
        return files;
    std::filesystem::create_directories(folder);
    const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    require(key != nullptr, "no key");
    const auto certificate = signedCertificate(key.get());
    const auto keyFile = openForOwner(files.key);
    require(PEM_write_PrivateKey(keyFile.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr), "writing the key");
    const auto certificateFile = openForOwner(files.certificate);
    require(PEM_write_X509(certificateFile.get(), certificate.get()), "writing the certificate");
    return files;
}
