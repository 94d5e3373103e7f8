#include <Discovery/Gateway/Platform/Linux/StagedFile.h>
#include <Tests/Support/TemporaryFolder.h>

using Zelkor::Discovery::Client::Platform::StagedFile;

TEST(StagedFileTests, OnlyWhatIsKeptOutlastsTheObject)
{
    for (const bool isKept : {false, true})
    {
        SCOPED_TRACE(isKept);
        const TemporaryFolder folder;
        folder.Write("old", "former");
        for (const char* const name : {"old", "new"})
        {
            StagedFile file(folder.Path(name).Utf8());
            ASSERT_EQ(0, file.Prepare("text"));
            ASSERT_EQ(0, file.Commit());
            EXPECT_EQ("text", folder.Read(name));
            if (isKept)
            {
                file.Keep();
            }
        }
        EXPECT_EQ(isKept ? "text" : "former", folder.Read("old"));
        EXPECT_EQ(isKept, folder.Has("new"));
        const std::filesystem::directory_iterator files(folder.Path().Utf8());
        EXPECT_EQ(isKept ? 2 : 1, std::distance(begin(files), end(files)));
    }
}
