#include "updates/Crypto.h"

#include <memory>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace Quillstacks {

namespace {

constexpr long hour = 3600;

EVP_PKEY* pkey(void* key) {
    return static_cast<EVP_PKEY*>(key);
}

/// What a function of the library writes into memory.
template <typename Write>
QByteArray written(Write write) {
    const std::unique_ptr<BIO, decltype(&BIO_free)> bio(BIO_new(BIO_s_mem()), &BIO_free);
    write(bio.get());
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &data);
    return {data, static_cast<qsizetype>(size)};
}

} // namespace

Publisher::Publisher() : key(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519")) {}

Publisher::~Publisher() {
    EVP_PKEY_free(pkey(key));
}

QByteArray Publisher::publicKey() const {
    QByteArray result(32, '\0');
    std::size_t size = 32;
    EVP_PKEY_get_raw_public_key(pkey(key), reinterpret_cast<unsigned char*>(result.data()), &size);
    return result;
}

QByteArray Publisher::sign(const QByteArray& message) const {
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    QByteArray result(64, '\0');
    std::size_t size = 64;
    EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, pkey(key));
    EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(result.data()), &size,
                   reinterpret_cast<const unsigned char*>(message.constData()),
                   static_cast<std::size_t>(message.size()));
    return result;
}

ServerIdentity ServerIdentity::make() {
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"),
                                                                  &EVP_PKEY_free);
    const std::unique_ptr<X509, decltype(&X509_free)> certificate(X509_new(), &X509_free);
    X509* const x509 = certificate.get();
    X509_set_version(x509, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(x509), 1);
    X509_gmtime_adj(X509_getm_notBefore(x509), -hour);
    X509_gmtime_adj(X509_getm_notAfter(x509), hour);
    X509_set_pubkey(x509, key.get());
    X509_NAME* const name = X509_get_subject_name(x509);
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("loopback"), -1, -1, 0);
    X509_set_issuer_name(x509, name);
    X509_EXTENSION* const address = X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
    X509_add_ext(x509, address, -1);
    X509_EXTENSION_free(address);
    X509_sign(x509, key.get(), EVP_sha256());
    return {QSslCertificate(written([&](BIO* bio) { PEM_write_bio_X509(bio, x509); })),
            QSslKey(written([&](BIO* bio) {
                        PEM_write_bio_PrivateKey(bio, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
                    }),
                    QSsl::Ec)};
}

} // namespace Quillstacks
