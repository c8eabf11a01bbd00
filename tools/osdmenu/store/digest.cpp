#include "store/digest.h"

void Digest::add(const std::string &part)
{
    std::string length = std::to_string(part.size()) + ":";
    for (const std::string *text : std::initializer_list<const std::string *>{&length, &part})
        g_checksum_update(sum, reinterpret_cast<const guchar *>(text->data()), static_cast<gssize>(text->size()));
}

std::string Digest::text() const
{
    return g_checksum_get_string(sum);
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
