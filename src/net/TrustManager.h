#pragma once

#include "platform/URLSession.h"

/// The decision on a server's certificate, for every connection of the program.
class TrustManager {
public:
    static TrustManager &shared();

    /// Accepts any certificate of any server while the defaults key `trustSelfSigned` is true; otherwise the platform's
    /// own rules hold. Any thread.
    ChallengeDisposition handle(const AuthenticationChallenge &challenge) const;
};
