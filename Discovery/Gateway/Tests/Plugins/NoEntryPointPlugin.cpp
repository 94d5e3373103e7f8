/// A library that is no plug-in.
extern "C" [[gnu::used]] int GetSomethingElse()
{
    return 0;
}
