#include "Benchmarks.h"
#include "RatioReporter.h"
#include "SampleHost.h"

#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>

#include <cjson/cJSON.h>

#include <string>

namespace Bench
{
namespace
{
using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;

/// Reads one message, as the parser's thread does, against one bare parse of the same text.
void CompareReading(const std::string& name, const DiscoveryMessage& message, double aim)
{
    const std::string text = message.ToJSON().Utf8();
    Compare(
        "Read " + name, aim,
        [text](benchmark::State& state)
        {
            const String received(text);
            for (auto _ : state)
            {
                benchmark::DoNotOptimize(DiscoveryMessageDeserializer().Deserialize(received));
            }
        },
        [text](benchmark::State& state)
        {
            for (auto _ : state)
            {
                cJSON_Delete(cJSON_Parse(text.c_str()));
            }
        });
}

void AddText(cJSON* object, const char* key, const char* text)
{
    cJSON_AddItemToObject(object, key, cJSON_CreateString(text));
}

cJSON* BareAdapter()
{
    cJSON* const adapter = cJSON_CreateObject();
    AddText(adapter, "FriendlyName", "lan0");
    AddText(adapter, "MACAddress", "02:00:00:00:00:01");
    AddText(adapter, "IPAddress", "10.77.0.2");
    AddText(adapter, "SubNetMask", "255.255.255.0");
    AddText(adapter, "DefaultGateway", "10.77.0.1");
    AddText(adapter, "MTU", "Unknown");
    return adapter;
}

/// The same signature by bare cJSON: the tree is built and printed once.
char* BareSignature(int adapters)
{
    cJSON* const root = cJSON_CreateObject();
    AddText(root, "DiscoveryMessageType", "SignatureBroadcast");
    AddText(root, "DiscoveryVersion", "1.0.23");
    AddText(root, "Broadcast", "True");
    cJSON* const host = cJSON_CreateObject();
    AddText(host, "HostName", "STUDIO4");
    cJSON_AddItemToObject(host, "IsHostNameReadOnly", cJSON_CreateFalse());
    cJSON_AddItemToObject(host, "RebootRequiredForIPConfigChange", cJSON_CreateFalse());
    cJSON_AddItemToObject(host, "RebootRequiredForHostNameChange", cJSON_CreateTrue());
    AddText(host, "DeviceType", "Linux PC");
    AddText(host, "DeviceFamily", "Computer");
    AddText(host, "SerialNumber", "4711");
    cJSON* const nics = cJSON_CreateArray();
    for (int index = 0; index < adapters; ++index)
    {
        cJSON_AddItemToArray(nics, BareAdapter());
    }
    cJSON_AddItemToObject(host, "NICs", nics);
    cJSON_AddItemToObject(host, "Products", cJSON_CreateArray());
    cJSON_AddItemToObject(root, "Host", host);
    cJSON_AddItemToObject(root, "SourceNIC", BareAdapter());
    char* const text = cJSON_PrintUnformatted(root);
    cJSON_Delete(root);
    return text;
}

void CompareWriting(int adapters)
{
    Compare(
        "Write a signature, " + std::to_string(adapters) + " adapters", 1.2,
        [adapters](benchmark::State& state)
        {
            const SignatureBroadcastMessage message = SampleSignature(adapters);
            for (auto _ : state)
            {
                benchmark::DoNotOptimize(message.ToJSON());
            }
        },
        [adapters](benchmark::State& state)
        {
            for (auto _ : state)
            {
                char* const text = BareSignature(adapters);
                benchmark::DoNotOptimize(*text);
                cJSON_free(text);
            }
        });
}
} // namespace

void AddProtocolComparisons()
{
    const DiscoveryHost host = SampleHost(1);
    const Sp<NICConfig> nic = SampleAdapter();
    Sp<Collections::Generic::List<Sp<NICConfig>>> nics(new Collections::Generic::List<Sp<NICConfig>>());
    nics->Add(nic);
    const MACAddress mac("02:00:00:00:00:01");

    CompareReading("SignatureBroadcast", SignatureBroadcastMessage(DiscoveryVersion(), host, nic, true), 4);
    CompareReading("Hello", HelloMessage(DiscoveryVersion(), host, nic), 4);
    CompareReading("Bye", ByeMessage(DiscoveryVersion(), host, nic), 4);
    CompareReading("ChangeYourIPConfig", ChangeYourIPConfigMessage(DiscoveryVersion(), nics), 4);
    CompareReading("SendYourSignature", SendYourSignatureMessage(DiscoveryVersion(), mac), 3);
    CompareReading("AllSendYourSignature", AllSendYourSignatureMessage(DiscoveryVersion()), 3);
    CompareReading("ChangeYourHostName", ChangeYourHostNameMessage(DiscoveryVersion(), "STUDIO5", mac), 3);
    for (const int adapters : {1, 4, 32})
    {
        CompareWriting(adapters);
    }
}
} // namespace Bench
