#version 330 core
// A skinned animal without a skeleton (the birds): no vertex stream at all. Vertex i finds its
// position for the current pose in the animation table: column i % width of the block of chunk
// i / width, at the row of the pose.
// uVertex1: model-view-projection matrix.
// uVertex2: the table's width in texels (vertices per chunk).
// uVertex3: 1 / the table's height in texels.
// uVertexTexture0: the table, RGBA16F, xyz = position.
// uVertex4: width as a float; half a texel's width; the pose's row coordinate (centre of the
//           row inside the first block); the height of one block as a share of the table.

uniform mat4 uVertex1;
uniform int uVertex2;
uniform float uVertex3;
uniform sampler2D uVertexTexture0;
uniform vec4 uVertex4;

void main() {
    int width = max(uVertex2, 1);
    int chunk = gl_VertexID / width;
    int column = gl_VertexID - chunk * width;
    // Row coordinate in the whole table, turned into a row; it addresses a row's centre, so
    // truncation is safe from rounding.
    float rowCoordinate = float(chunk) * uVertex4.w + uVertex4.z;
    int row = int(rowCoordinate / uVertex3);
    vec3 position = texelFetch(uVertexTexture0, ivec2(column, row), 0).xyz;
    gl_Position = uVertex1 * vec4(position, 1.0);
}
