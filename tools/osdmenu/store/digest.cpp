#include "store/digest.h"

#include <cstdio>

void Digest::add(const std::string &part)
{
    auto update = [&](const std::string &text) {
        sha256_update(&state, text.size(), reinterpret_cast<const uint8_t *>(text.data()));
    };
    update(std::to_string(part.size()) + ":");
    update(part);
}

std::string Digest::text()
{
    uint8_t sum[SHA256_DIGEST_SIZE];
    sha256_digest(&state, sizeof sum, sum);
    std::string digits(sizeof sum * 2 + 1, '\0');
    for (size_t i = 0; i < sizeof sum; i++)
        std::snprintf(&digits[i * 2], 3, "%02x", sum[i]);
    digits.pop_back();
    return digits;
}

std::string digest_of(const std::map<std::string, std::string> &files)
{
    Digest digest;
    for (const auto &[name, content] : files) {
        digest.add(name);
        digest.add(content);
    }
    return digest.text();
}
