/* The least that a discovery daemon can do, beside which Bench/Peers puts the others: says hello, then answers each
   datagram that is JSON, and nothing else. No log, no host, no address of its own is looked at. */
#include <cjson/cJSON.h>

#include <netinet/in.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>
#include <sys/socket.h>

enum
{
    PortOfClients = 12000,
    PortOfRequesters = 12001
};

/* As long as the signature of a host with one adapter. */
static const char Answer[] =
    "{\"DiscoveryMessageType\":\"SignatureBroadcast\",\"DiscoveryVersion\":\"1.0.23\",\"Broadcast\":\"False\",\"Host\":"
    "{\"HostName\":\"STUDIO4\",\"IsHostNameReadOnly\":false,\"RebootRequiredForIPConfigChange\":false,"
    "\"RebootRequiredForHostNameChange\":true,\"DeviceType\":\"Linux PC\",\"DeviceFamily\":\"Computer\","
    "\"SerialNumber\":\"\",\"NICs\":[{\"FriendlyName\":\"lan0\",\"MACAddress\":\"02:00:00:00:00:01\",\"IPAddress\":"
    "\"10.77.0.2\",\"SubNetMask\":\"255.255.0.0\",\"DefaultGateway\":\"10.77.0.1\",\"MTU\":\"Unknown\"}],"
    "\"Products\":[]},\"SourceNIC\":{\"FriendlyName\":\"lan0\",\"MACAddress\":\"02:00:00:00:00:01\",\"IPAddress\":"
    "\"10.77.0.2\",\"SubNetMask\":\"255.255.0.0\",\"DefaultGateway\":\"10.77.0.1\",\"MTU\":\"Unknown\"}}";

static int Send(int daemon, struct sockaddr_in to)
{
    to.sin_port = htons(PortOfRequesters);
    return sendto(daemon, Answer, sizeof(Answer) - 1, 0, (const struct sockaddr*)&to, sizeof(to)) >= 0;
}

static int Fail(const char* what)
{
    perror(what);
    return 1;
}

int main(void)
{
    const int on = 1;
    const struct sockaddr_in any = {.sin_family = AF_INET, .sin_port = htons(PortOfClients)};
    const struct sockaddr_in everybody = {.sin_family = AF_INET, .sin_addr.s_addr = htonl(INADDR_BROADCAST)};
    const int daemon = socket(AF_INET, SOCK_DGRAM, 0);
    if (setsockopt(daemon, SOL_SOCKET, SO_BROADCAST, &on, sizeof(on)) != 0 ||
        bind(daemon, (const struct sockaddr*)&any, sizeof(any)) != 0)
    {
        return Fail("bind");
    }
    if (!Send(daemon, everybody))
    {
        return Fail("hello");
    }
    for (;;)
    {
        char text[2048];
        struct sockaddr_in sender;
        socklen_t length = sizeof(sender);
        const ssize_t size = recvfrom(daemon, text, sizeof(text) - 1, 0, (struct sockaddr*)&sender, &length);
        if (size < 0)
        {
            return Fail("recvfrom");
        }
        text[size] = '\0';
        cJSON* const request = cJSON_Parse(text);
        if (request != NULL && !Send(daemon, sender))
        {
            perror("answer");
        }
        cJSON_Delete(request);
    }
}
