/// A library that misses what it stands on.
extern "C" void MissingDependency();

extern "C" [[gnu::visibility("default")]] void* GetDiscoveryProductPlugin()
{
    MissingDependency();
    return nullptr;
}
