#include "http/APIRequest.h"

#include <algorithm>

#include <charconv>

namespace {

std::int64_t parseInteger(const std::string &name, const std::string &text) {
    std::int64_t value = 0;
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        throw APIError(400, name + " must be an integer");
    return value;
}

const nlohmann::json &bodyValue(const APIRequest &request, const std::string &name) {
    const auto found = request.body.find(name);
    if (found == request.body.end())
        throw APIError(400, name + " is missing");
    return *found;
}

} // namespace

std::string APIRequest::queryText(const std::string &name) const {
    const auto found = query.find(name);
    if (found == query.end())
        throw APIError(400, name + " is missing");
    return found->second;
}

std::string APIRequest::queryText(const std::string &name, const std::string &otherwise) const {
    const auto found = query.find(name);
    return found == query.end() ? otherwise : found->second;
}

std::int64_t APIRequest::queryInteger(const std::string &name, std::int64_t otherwise) const {
    const auto found = query.find(name);
    return found == query.end() ? otherwise : parseInteger(name, found->second);
}

std::int64_t APIRequest::pathInteger(std::size_t position) const {
    return parseInteger("the path's number", pathArguments.at(position));
}

std::string APIRequest::bodyText(const std::string &name) const {
    const auto &value = bodyValue(*this, name);
    if (!value.is_string())
        throw APIError(400, name + " must be a text");
    return value.get<std::string>();
}

std::optional<std::string> APIRequest::bodyOptionalText(const std::string &name) const {
    if (!body.contains(name) || body[name].is_null())
        return std::nullopt;
    return bodyText(name);
}

std::int64_t APIRequest::bodyInteger(const std::string &name) const {
    const auto &value = bodyValue(*this, name);
    if (!value.is_number_integer())
        throw APIError(400, name + " must be an integer");
    return value.get<std::int64_t>();
}

bool APIRequest::bodyFlag(const std::string &name) const {
    const auto &value = bodyValue(*this, name);
    if (!value.is_boolean())
        throw APIError(400, name + " must be true or false");
    return value.get<bool>();
}

std::vector<std::int64_t> APIRequest::bodyIntegers(const std::string &name) const {
    const auto &value = bodyValue(*this, name);
    const auto isInteger = [](const nlohmann::json &element) { return element.is_number_integer(); };
    if (!value.is_array() || !std::all_of(value.begin(), value.end(), isInteger))
        throw APIError(400, name + " must be a list of integers");
    return value.get<std::vector<std::int64_t>>();
}

APIResponse APIResponse::json(const nlohmann::json &value) {
    APIResponse response;
    response.body = jsonText(value);
    return response;
}

APIResponse APIResponse::done() {
    return json({{"success", true}});
}

std::string jsonText(const nlohmann::json &value) {
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}
