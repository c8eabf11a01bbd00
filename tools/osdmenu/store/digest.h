// SHA-256 over texts and files, as hexadecimal digits.
#pragma once

#include <map>
#include <string>

#include <nettle/sha2.h>

class Digest
{
  public:
    Digest()
    {
        sha256_init(&state);
    }

    // Each part goes in with its length: two parts never read as another two.
    void add(const std::string &part);

    // Ends the sum.
    std::string text();

  private:
    sha256_ctx state;
};

std::string digest_of(const std::map<std::string, std::string> &files);
