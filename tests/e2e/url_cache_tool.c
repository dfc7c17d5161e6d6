/* Speaks to the URL cache of Windows, for a test that lets Wine do it.
 *
 *   make URL [COUNT]   makes a cached file for the address; with a count for COUNT addresses, each with its number
 *   cookie URL         sets a cookie that lives on
 *   visit URL          an entry of the history, which has no file
 *   list               all entries, a line each: type, size, address, file; with "|" between them
 *   delete URL         1 when it was there
 */
#include <windows.h>
#include <wininet.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char kHeader[] = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";

static FILETIME now(void) {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    return time;
}

static FILETIME never(void) {
    FILETIME time = {0, 0};
    return time;
}

static int failed(const char* what) {
    printf("%s: error %lu\n", what, (unsigned long)GetLastError());
    return 1;
}

static int make(const char* url) {
    char file[MAX_PATH];
    char header[sizeof kHeader];
    FILE* out;
    memcpy(header, kHeader, sizeof kHeader);
    if (!CreateUrlCacheEntryA(url, 0, "htm", file, 0)) return failed("CreateUrlCacheEntry");
    out = fopen(file, "wb");
    if (out == NULL) return failed(file);
    fprintf(out, "<p>%s</p>\n", url);
    fclose(out);
    if (!CommitUrlCacheEntryA(url, file, never(), now(), NORMAL_CACHE_ENTRY, (LPBYTE)header, sizeof kHeader - 1, "htm",
                              NULL)) {
        return failed("CommitUrlCacheEntry");
    }
    return 0;
}

static int makeMany(const char* url, int count) {
    char numbered[512];
    int i;
    for (i = 0; i < count; ++i) {
        snprintf(numbered, sizeof numbered, "%s%d", url, i);
        if (make(numbered) != 0) return 1;
    }
    return 0;
}

static int cookie(const char* url) {
    if (!InternetSetCookieA(url, NULL, "colour=blue; expires=Sat, 01-Jan-2050 00:00:00 GMT")) {
        return failed("InternetSetCookie");
    }
    return 0;
}

static int visit(const char* url) {
    char name[512];
    snprintf(name, sizeof name, "Visited: root@%s", url);
    if (!CommitUrlCacheEntryA(name, NULL, never(), now(), NORMAL_CACHE_ENTRY | URLHISTORY_CACHE_ENTRY, NULL, 0, NULL,
                              NULL)) {
        return failed("CommitUrlCacheEntry");
    }
    return 0;
}

static int list(void) {
    union {
        INTERNET_CACHE_ENTRY_INFOA info;
        char room[16384];
    } entry;
    DWORD size = sizeof entry;
    HANDLE find = FindFirstUrlCacheEntryA(NULL, &entry.info, &size);
    if (find == NULL) return GetLastError() == ERROR_NO_MORE_ITEMS ? 0 : failed("FindFirstUrlCacheEntry");
    do {
        const char* file = entry.info.lpszLocalFileName;
        printf("%lx|%lu|%s|%s\n", (unsigned long)entry.info.CacheEntryType, (unsigned long)entry.info.dwSizeLow,
               entry.info.lpszSourceUrlName, file != NULL ? file : "");
        size = sizeof entry;
    } while (FindNextUrlCacheEntryA(find, &entry.info, &size));
    FindCloseUrlCache(find);
    return 0;
}

int main(int count, char** arguments) {
    const char* command = count > 1 ? arguments[1] : "";
    const char* argument = count > 2 ? arguments[2] : NULL;
    if (strcmp(command, "list") == 0) return list();
    if (argument == NULL) return 2;
    if (strcmp(command, "make") == 0) return count > 3 ? makeMany(argument, atoi(arguments[3])) : make(argument);
    if (strcmp(command, "cookie") == 0) return cookie(argument);
    if (strcmp(command, "visit") == 0) return visit(argument);
    if (strcmp(command, "delete") == 0) {
        printf("%d\n", DeleteUrlCacheEntryA(argument) ? 1 : 0);
        return 0;
    }
    return 2;
}
