#include "DiscoveryClientService.h"

int main()
{
    return Zelkor::Discovery::Client::DiscoveryClientService::Run();
}
