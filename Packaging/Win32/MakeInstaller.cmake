# Makes the installer of a version. The same program and SOURCE_DATE_EPOCH give the same bytes.
# cmake -DVERSION=1.0.0 -DPROGRAM=<DiscoveryClient.exe> -DINSTALLER=<file.msi> -P MakeInstaller.cmake
set(upgradeCode 5F3A9C64-0E0B-4D27-9C7B-7B1B9E0A6D10) # of all versions, for ever
set(source ${CMAKE_CURRENT_LIST_DIR}/DiscoveryClient.wxs)
file(SHA256 ${PROGRAM} content)
file(SHA256 ${source} recipe)
string(UUID productCode NAMESPACE ${upgradeCode} NAME ${VERSION} TYPE SHA1 UPPER)
string(UUID packageCode NAMESPACE ${upgradeCode} NAME "${VERSION} ${content} ${recipe}" TYPE SHA1 UPPER)
string(TIMESTAMP now "%Y/%m/%d %H:%M:%S" UTC) # SOURCE_DATE_EPOCH, if that is set

cmake_path(GET PROGRAM PARENT_PATH folder)
cmake_path(GET PROGRAM FILENAME name)
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY) # wixl takes no path
endfunction()

run(touch --date "${now} UTC" ${PROGRAM})
run(wixl --arch x86 --output ${INSTALLER} ${source} -D Version=${VERSION} -D Program=${name}
    -D ProductCode=${productCode} -D UpgradeCode=${upgradeCode})

# What wixl leaves out: the file's version, by which Windows decides whether to replace it; that a text of the registry is
# expanded (#%); that nothing is installed without the service; and that an action is for a rollback (msidefs.h:
# msidbServiceInstallErrorControlVital, msidbCustomActionTypeRollback).
run(msibuild ${INSTALLER} -q
    "DELETE FROM `MsiFileHash`"
    "UPDATE `File` SET `Version` = '${VERSION}.0', `Language` = '1033' WHERE `File` = 'Program'"
    "UPDATE `Registry` SET `Value` = '#%\"[ProgramFolder]DiscoveryClient.exe\"' WHERE `Name` = 'ImagePath'"
    "UPDATE `ServiceInstall` SET `ErrorControl` = 32769 WHERE `ServiceInstall` = 'Service'"
    "UPDATE `CustomAction` SET `Type` = 3442 WHERE `Action` = 'UndoAddRule'"
    "UPDATE `CustomAction` SET `Type` = 3442 WHERE `Action` = 'UndoDeleteRule'")

# Its code (9) and times (12, 13) would differ each time.
set(summary ${INSTALLER}.summary)
execute_process(COMMAND msiinfo export ${INSTALLER} _SummaryInformation OUTPUT_VARIABLE rows COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "\n9\t[^\n]*" "\n9\t{${packageCode}}" rows "${rows}")
string(REGEX REPLACE "\n(1[23])\t[^\n]*" "\n\\1\t${now}" rows "${rows}")
file(WRITE ${summary} "${rows}")
run(msibuild ${INSTALLER} -i ${summary})
file(REMOVE ${summary})
