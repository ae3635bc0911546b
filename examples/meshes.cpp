#include <Zyr3DData.h>

#include <cstdio>

int main() {
    double corners[] = {0, 0, 0, 4, 0, 0, 4, 3, 0, 0, 3, 0};
    int indices[] = {0, 1, 2, 0, 2, 3};
    ZyrVector3dArray vertices(corners, 12, -9999.0);
    Zyr3DIntArray triangles(indices, 6);
    ZyrTriangleMesh plain(vertices, triangles);
    std::printf("%d vertices, %d triangles\n", plain.NumVertices(), plain.NumTriangles());

    ZyrVector3dArray normals;
    double area = 0;
    for (int t = 0; t < plain.NumTriangles(); ++t) {
        Zyr3DTriangle triangle;
        plain.SelectTriangle(t, &triangle);
        ZyrVector3d edge = triangle.b - triangle.a;
        ZyrVector3d across = edge.Cross(triangle.c - triangle.a);
        area += across.Norm() / 2;
        normals.Append(across.Normalized());
    }
    std::printf("area %g\n", area);

    ZyrColorArray colors;
    colors.Create(plain.NumVertices(), 3);
    colors.SetColor(ZyrColor(0, 128, 255, 255));
    ZyrTriangleMesh mesh(vertices, triangles, colors, ZyrColorArray(), ZyrVector3dArray(), normals);
    std::printf("vertex colours: %d, triangle normals: %d, vertex normals: %d\n",
                mesh.IsValidVertexColor(), mesh.IsValidTriangleNormal(),
                mesh.IsValidVertexNormal());

    ZyrVector3d hole;
    mesh.ReplaceVertex(3, hole);
    std::printf("valid: %d vertices, %d triangles\n", mesh.NumValidVertices(),
                mesh.NumValidTriangles());

    if (!mesh.Save("plate.ztmt", true, true)) return 1;
    ZyrTriangleMesh loaded;
    if (!loaded.Load("plate.ztmt", true, true)) return 1;
    int a = 0;
    int b = 0;
    int c = 0;
    loaded.SelectTriangle(1, &a, &b, &c);
    ZyrVector3d normal;
    loaded.SelectTriangleNormal(1, &normal);
    std::printf("triangle 1: %d %d %d, normal %g %g %g\n", a, b, c, normal.x, normal.y, normal.z);
}
