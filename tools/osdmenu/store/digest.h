// SHA-256 over texts and files, as hexadecimal digits.
#pragma once

#include <map>
#include <string>

#include <glib.h>

class Digest
{
  public:
    Digest() : sum(g_checksum_new(G_CHECKSUM_SHA256)) {}
    ~Digest()
    {
        g_checksum_free(sum);
    }
    Digest(const Digest &) = delete;
    Digest &operator=(const Digest &) = delete;

    // Each part goes in with its length: two parts never read as another two.
    void add(const std::string &part);
    std::string text() const;

  private:
    GChecksum *sum;
};

std::string digest_of(const std::map<std::string, std::string> &files);
