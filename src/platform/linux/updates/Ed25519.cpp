#include "updates/Ed25519.h"

#include <memory>

#include <openssl/err.h>
#include <openssl/evp.h>

namespace Quillstacks::Ed25519 {

namespace {

constexpr qsizetype keyLength = 32;
constexpr qsizetype signatureLength = 64;

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Context = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

const unsigned char* bytes(QByteArrayView view) {
    return reinterpret_cast<const unsigned char*>(view.data());
}

std::size_t length(QByteArrayView view) {
    return static_cast<std::size_t>(view.size());
}

} // namespace

bool verifies(QByteArrayView message, QByteArrayView signature, QByteArrayView publicKey) {
    if (publicKey.size() != keyLength || signature.size() != signatureLength)
        return false;
    const Key key(EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytes(publicKey), length(publicKey)),
                  &EVP_PKEY_free);
    const Context context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    // The digest is the algorithm's own, so none is named.
    const bool isGood =
        key && context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) == 1 &&
        EVP_DigestVerify(context.get(), bytes(signature), length(signature), bytes(message), length(message)) == 1;
    // A refusal leaves its reason behind, which the next user of the library on this thread would take for its own.
    ERR_clear_error();
    return isGood;
}

} // namespace Quillstacks::Ed25519
