#include <Discovery/Gateway/IDiscoveryProductPlugin.h>

#include <stdexcept>

#ifndef VERSION
#define VERSION "2.1"
#endif
#ifndef REFUSED_QUESTION
#define REFUSED_QUESTION 0 // none
#endif
#ifndef THROWING_QUESTION
#define THROWING_QUESTION 0 // none
#endif

namespace
{
/// Answers each question once, in their order and into an empty text; any other use throws.
class AnsweringPlugin final : public Zelkor::Discovery::Client::IDiscoveryProductPlugin
{
public:
    std::int32_t GetProductType(std::string& text) override
    {
        return Answer(1, text, "Server");
    }
    std::int32_t GetProductSerialNumber(std::string& text) override
    {
        return Answer(2, text, "88");
    }
    std::int32_t GetProductVersion(std::string& text) override
    {
        return Answer(3, text, VERSION);
    }
    std::int32_t GetProductName(std::string& text) override
    {
        return Answer(4, text, "St\xC3\xB6re, with a name that is longer than what a text keeps within itself");
    }

private:
    std::int32_t Answer(int question, std::string& text, const char* answer)
    {
        if (question != ++asked || !text.empty())
        {
            throw std::logic_error("asked against the contract");
        }
        if (question == THROWING_QUESTION)
        {
            throw std::runtime_error("thrown by a plug-in");
        }
        try
        {
            throw std::runtime_error("stays within the plug-in");
        }
        catch (const std::exception&)
        {
            text = answer;
        }
        if (question == REFUSED_QUESTION)
        {
            asked = 99; // whatever is asked next is out of turn
            return question % 2 == 0 ? 1 : -1;
        }
        return 0;
    }

    int asked = 0;
};
} // namespace

Zelkor::Discovery::Client::IDiscoveryProductPlugin* GetDiscoveryProductPlugin()
{
    return new AnsweringPlugin();
}
