/// A library that misses what it stands on.
extern "C" void MissingDependency();

extern "C" [[gnu::used]] void UseDependency()
{
    MissingDependency();
}
