#pragma once
// Salted password hashes for `ClaveAcceso`: argon2id strings of libsodium
// ("$argon2id$v=19$m=...,t=...,p=1$salt$hash", under 128 characters).
//
// Contract:
// - `hashPassword` makes a new hash with a random salt at the current cost;
//   empty when libsodium cannot make one (out of memory).
// - `isPasswordHash` tells a stored hash from a password kept in clear.
// - `verifyPassword` checks typed text against a stored value: a hash is
//   verified by libsodium, anything else is compared exactly as clear text.
// - `passwordNeedsUpgrade`: the stored value is clear text or a hash made at
//   another cost, so it should be hashed again after a successful check.
// - The cost is libsodium's interactive limits. Tests may lower it with
//   `setPasswordHashCost`; nothing else does, so production never runs weaker.

#include <QString>
#include <cstddef>

namespace co {

struct PasswordHashCost {
    unsigned long long operations;
    std::size_t memoryBytes;
};

// libsodium's interactive limits.
PasswordHashCost interactivePasswordHashCost();
PasswordHashCost passwordHashCost();
// Returns false, changing nothing, below libsodium's minimum limits.
bool setPasswordHashCost(PasswordHashCost cost);

QString hashPassword(const QString &clear);
bool isPasswordHash(const QString &stored);
bool verifyPassword(const QString &stored, const QString &typed);
bool passwordNeedsUpgrade(const QString &stored);

} // namespace co
