#pragma once

#include "mime/MessageHeaders.h"

/// The addresses of a recipient line such as `Bob <b@x.example>, "Doe, Jane" <j@y.example>`; commas and semicolons
/// separate. Domains come back in their ASCII form. What is no mail address fails with an APIError of status 400 that
/// names it.
std::vector<MessageAddress> parseAddressList(const std::string &text);

/// One address without a name, such as "b@x.example"; fails as above.
std::string parseMailAddress(const std::string &text);
