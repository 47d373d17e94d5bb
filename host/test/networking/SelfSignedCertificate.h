#pragma once

#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

#include <unistd.h>

namespace norel::Desktop::Test {

/// A certificate for the host 127.0.0.1, valid for an hour and signed by itself; `file` holds it as PEM.
class SelfSignedCertificate {
public:
    SelfSignedCertificate() {
        X509_set_version(certificate.get(), X509_VERSION_3);
        X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -60);
        X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
        X509_set_pubkey(certificate.get(), key.get());
        X509_NAME* const name = X509_get_subject_name(certificate.get());
        X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("test"),
                                   -1, -1, 0);
        X509_set_issuer_name(certificate.get(), name);
        const std::unique_ptr<X509_EXTENSION, Free> hosts(
            X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1"));
        X509_add_ext(certificate.get(), hosts.get(), -1);
        const std::unique_ptr<std::FILE, Free> out(std::fopen(file.c_str(), "w"));
        if (X509_sign(certificate.get(), key.get(), EVP_sha256()) == 0 || !out ||
            PEM_write_X509(out.get(), certificate.get()) != 1)
            throw std::runtime_error("cannot make a certificate");
    }

    ~SelfSignedCertificate() {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }

    SelfSignedCertificate(const SelfSignedCertificate&) = delete;
    SelfSignedCertificate& operator=(const SelfSignedCertificate&) = delete;

private:
    struct Free {
        void operator()(X509* item) const { X509_free(item); }
        void operator()(EVP_PKEY* item) const { EVP_PKEY_free(item); }
        void operator()(X509_EXTENSION* item) const { X509_EXTENSION_free(item); }
        void operator()(std::FILE* item) const { std::fclose(item); }
    };

public:
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("norel-certificate-" + std::to_string(::getpid()) + ".pem");
    const std::unique_ptr<EVP_PKEY, Free> key{EVP_EC_gen("P-256")};
    const std::unique_ptr<X509, Free> certificate{X509_new()};
};

} // namespace norel::Desktop::Test
