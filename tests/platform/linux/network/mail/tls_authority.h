// Certificates for one test, with the authority that has signed them.
#pragma once

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>
#include <string>

namespace velmora::linuxhost {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

class TlsAuthority {
  public:
    explicit TlsAuthority(std::string name = "Test authority");

    /// Whom to trust, in the form of a file.
    std::string pem() const;
    Certificate certificateFor(const std::string& host) const;
    /// The key of the authority and of every certificate: tests need no more.
    EVP_PKEY* key() const { return key_.get(); }

  private:
    std::string name_;
    Key key_;
    Certificate own_;
};

}  // namespace velmora::linuxhost
