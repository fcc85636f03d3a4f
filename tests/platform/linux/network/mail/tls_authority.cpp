#include "platform/linux/network/mail/tls_authority.h"

#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <utility>

namespace velmora::linuxhost {

namespace {

void extend(X509* certificate, int kind, const std::string& value) {
    X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str());
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

void setName(X509_NAME* name, const std::string& text) {
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(text.c_str()), -1, -1, 0);
}

Certificate unsignedCertificate(const std::string& subject, const std::string& issuer, long serial,
                                EVP_PKEY* key) {
    constexpr long hour = 3600;
    Certificate made(X509_new(), X509_free);
    X509_set_version(made.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(made.get()), serial);
    X509_gmtime_adj(X509_getm_notBefore(made.get()), -hour);
    X509_gmtime_adj(X509_getm_notAfter(made.get()), hour);
    setName(X509_get_subject_name(made.get()), subject);
    setName(X509_get_issuer_name(made.get()), issuer);
    X509_set_pubkey(made.get(), key);
    return made;
}

}  // namespace

TlsAuthority::TlsAuthority(std::string name)
    : name_(std::move(name)),
      key_(EVP_EC_gen("P-256"), EVP_PKEY_free),
      own_(unsignedCertificate(name_, name_, 1, key_.get())) {
    extend(own_.get(), NID_basic_constraints, "critical,CA:TRUE");
    X509_sign(own_.get(), key_.get(), EVP_sha256());
}

std::string TlsAuthority::pem() const {
    const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
    PEM_write_bio_X509(memory.get(), own_.get());
    char* text = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &text);
    return {text, static_cast<std::size_t>(size)};
}

Certificate TlsAuthority::certificateFor(const std::string& host) const {
    Certificate made = unsignedCertificate(host, name_, 2, key_.get());
    extend(made.get(), NID_subject_alt_name, "DNS:" + host);
    X509_sign(made.get(), key_.get(), EVP_sha256());
    return made;
}

}  // namespace velmora::linuxhost
