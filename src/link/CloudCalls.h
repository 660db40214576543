#pragma once

/// The calls of the cloud's services that carry JSON, files or a ticket over HTTP. Each is one row of the
/// table of ServiceConfig: its verb, its service and its path.
enum class CloudCall {
    Login,
    Refresh,
    Logout,
    Ticket,
    Version,
    Projects,
    ProjectsShared,
    ProjectByName,
    CreateProject,
    RemoveProject,
    SaveAs,
    UploadProject,
    DownloadProject,
    ReadProjectJson,
    WriteProjectJson,
};

enum class HttpVerb { Get, Post, Delete };
